// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "DeviceAccess.h"
#include "DeviceBook.h"
#include "NameLookup.h"
#include "SecretStore.h"

#include <QHash>
#include <QObject>

#include <functional>
#include <memory>

class QQuickItem;

/**
 * Decides which device the client shows, for the host's pages: from the command line, from the device book with a
 * password at hand, from a form, or the demo.
 *
 * Owned by main(), in the GUI thread; owns the device book and the secret store. Passwords are in memory for the
 * life of the process. One that was typed to connect goes to the secret store when the device has answered, one that
 * was typed into a form of the settings at once.
 */
class HostController final : public QObject
{
    Q_OBJECT
    Q_PROPERTY(DeviceBook *devices READ devices CONSTANT)
    Q_PROPERTY(QString deviceName READ deviceName NOTIFY deviceChanged)
    Q_PROPERTY(QString deviceHost READ deviceHost NOTIFY deviceChanged)
    Q_PROPERTY(int devicePort READ devicePort NOTIFY deviceChanged)
    Q_PROPERTY(QString deviceUser READ deviceUser NOTIFY deviceChanged)
    Q_PROPERTY(QString devicePassword READ devicePassword NOTIFY deviceChanged)
    Q_PROPERTY(bool trying READ isTrying NOTIFY deviceChanged)
    Q_PROPERTY(bool demo READ isDemo NOTIFY deviceChanged)
    Q_PROPERTY(bool remembered READ isRemembered NOTIFY deviceChanged)
    Q_PROPERTY(QString problem READ problem NOTIFY problemChanged)
    Q_PROPERTY(bool keepsPasswords READ keepsPasswords CONSTANT)

public:
    using Demo = std::function<bool(DeviceAccess *access, QString *error)>;

    /// `demo` starts the simulated house, at its first call. `secrets` may be null: then passwords end with the
    /// process.
    explicit HostController(Demo demo, std::unique_ptr<SecretStore> secrets, QObject *parent = nullptr);

    DeviceBook *devices() { return &m_devices; }

    // The device that the client is to show; all empty without one. The demo has no name.
    QString deviceName() const { return m_name; }
    QString deviceHost() const { return m_access.address.host; }
    int devicePort() const { return m_access.address.port; }
    QString deviceUser() const { return m_access.user; }
    QString devicePassword() const { return m_access.password; }
    /// Whether its password was typed in just now; until the device answers, or another one is chosen.
    bool isTrying() const { return m_trying; }
    /// The simulated house.
    bool isDemo() const { return m_name.isEmpty() && !deviceHost().isEmpty(); }
    bool isRemembered() const { return !m_id.isEmpty(); } ///< it is the chosen one of the device book

    /// One sentence on what went wrong last, empty since the last choice of a device. That the network does not know
    /// the device's name is forgotten when the device answers.
    QString problem() const { return m_problem ? m_problem() : QString(); }
    void setProblem(const Sentence &problem);
    Q_INVOKABLE void dismissProblem() { setProblem({}); }
    bool keepsPasswords() const { return m_secrets != nullptr; } ///< beyond this run

    /// Shows a device that is not to be remembered.
    void show(const QString &name, const DeviceAccess &access);
    /// Shows the device of the book that was chosen last, if there is one.
    Q_INVOKABLE void showLast();

    /// Shows what stands in a form: name, host, port, user and password, all texts. It goes into the device book in
    /// place of the same device or of the chosen one. Returns one sentence, and does nothing, when something is wrong.
    Q_INVOKABLE QString connectTo(const QVariantMap &typed);
    /// Puts a form into a row of the book, or behind its end with -1. A password goes to the secret store at once; an
    /// empty one leaves the known one, for the new address too. The device that is shown, or waits for its password,
    /// is chosen anew. Returns one sentence, and does nothing, when something is wrong.
    Q_INVOKABLE QString keep(int row, const QVariantMap &typed);
    /// Chooses a device of the book and shows it if its password is at hand. If not, there is no device, until the
    /// store has the password or a person types it.
    Q_INVOKABLE void choose(int row);
    /// A person types into the first page: an answer of the store that is still to come does not take it away.
    Q_INVOKABLE void typing() { m_awaited.clear(); }
    Q_INVOKABLE void forget(int row);
    /// Returns one sentence when the demo does not start.
    Q_INVOKABLE QString showDemo();
    /// The device that is shown has accepted its user.
    Q_INVOKABLE void deviceAnswered();

    /// Closes the topmost pop-up of the client below an item, as far as it can be told to. False without one.
    Q_INVOKABLE bool closePopup(QQuickItem *root) const;

Q_SIGNALS:
    void deviceChanged(); ///< the client is to be made anew, or to go when there is no device
    void problemChanged();

private:
    void tellUnknownName(const QString &host);
    void takeSecret(const QString &id, const QString &secret);
    enum class Password { Known, Typed };
    void showRow(int row, const QString &password, Password origin = Password::Known);
    void setDevice(const QString &id, const QString &name, const DeviceAccess &access,
                   Password origin = Password::Known);
    void keepSecret(const QString &id, const QString &secret);

    DeviceBook m_devices;
    NameLookup m_lookup;
    Demo m_demo;
    std::unique_ptr<SecretStore> m_secrets;
    QHash<QString, QString> m_passwords; // by the device's id
    QString m_awaited;                   // the id whose password the store is asked for
    QString m_unproven;                  // the id of a device that was typed in and has not answered yet
    QString m_id;                        // of the shown device; empty outside of the book
    QString m_name;
    DeviceAccess m_access;
    bool m_trying = false;
    Sentence m_problem;
    bool m_nameIsProblem = false; // whether that is about the device's name
};
