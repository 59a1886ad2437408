// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "support/Text.h"
#include "support/Waiting.h"

#include <QtTest>

#include <functional>
#include <memory>

/**
 * The base of every suite. After each test function it looks at what Qt has logged meanwhile: a warning that was not
 * announced with QTest::ignoreMessage() fails that test. Suites therefore have no cleanup() of their own.
 */
class Suite : public QObject
{
    Q_OBJECT

protected:
    /// Warnings that contain `part` may come in this test function, any number of them, or none.
    void allow(const QByteArray &part) { m_allowed.append(part); }

private Q_SLOTS:
    void cleanup();

private:
    QByteArrayList m_allowed;
};

/// Runs the suite that `make` returns, without a screen, in a home directory and a settings scope that are made for
/// this run and removed behind it. Returns the exit status of the program.
int runSuite(int argc, char **argv, const std::function<std::unique_ptr<Suite>()> &make);

/// The main function of a suite.
#define HALVORA_SUITE_MAIN(Class)                                                                            \
    int main(int argc, char **argv)                                                                          \
    {                                                                                                        \
        return runSuite(argc, argv, [] { return std::unique_ptr<Suite>(new Class); });                       \
    }
