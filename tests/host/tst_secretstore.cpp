// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "KeychainStore.h"

#include "support/Suite.h"

#include <QDBusConnection>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

namespace {

constexpr char configuration[] = "<busconfig><type>session</type><listen>unix:dir=%1</listen>"
                                 "<policy context='default'><allow send_destination='*'/>"
                                 "<allow receive_sender='*'/><allow own='*'/></policy></busconfig>";

} // namespace

/// When the host takes a desktop to have a secret store, on a session bus of its own.
class SecretStoreTest final : public Suite
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    // What works.
    void takesAStoreThatIsOnTheBus_data();
    void takesAStoreThatIsOnTheBus();
    // What goes wrong.
    void doesWithoutABus();
    void cleanupTestCase();

private:
    QTemporaryDir m_folder;
    QProcess m_bus;
    QByteArray m_address;
};

/// The bus is started once; each test begins with it as the session's.
void SecretStoreTest::init()
{
    const QString daemon = QStandardPaths::findExecutable("dbus-daemon"_s);
    if (daemon.isEmpty())
        QSKIP("there is no dbus-daemon");
    if (m_address.isEmpty()) {
        QFile file(m_folder.filePath("bus.conf"_s));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(QString::fromUtf8(configuration).arg(m_folder.path()).toUtf8());
        file.close();
        m_bus.start(daemon, {"--nofork"_s, "--print-address"_s, "--config-file"_s, file.fileName()});
        QVERIFY2(m_bus.waitForReadyRead(), m_bus.readAllStandardError());
        m_address = m_bus.readLine().trimmed();
    }
    qputenv("DBUS_SESSION_BUS_ADDRESS", m_address);
}

void SecretStoreTest::takesAStoreThatIsOnTheBus_data()
{
    QTest::addColumn<bool>("isStore");
    QTest::newRow("org.freedesktop.secrets") << true;
    QTest::newRow("org.kde.kwalletd5") << true;
    QTest::newRow("org.freedesktop.Notifications") << false;
}

void SecretStoreTest::takesAStoreThatIsOnTheBus()
{
    QFETCH(bool, isStore);
    QVERIFY(!KeychainStore::ofSession());
    QDBusConnection keeper = QDBusConnection::connectToBus(QString::fromUtf8(m_address), "keeper"_s);
    QVERIFY(keeper.registerService(QString::fromUtf8(QTest::currentDataTag())));
    QCOMPARE(KeychainStore::ofSession() != nullptr, isStore);
    QVERIFY(keeper.unregisterService(QString::fromUtf8(QTest::currentDataTag())));
    QDBusConnection::disconnectFromBus("keeper"_s);
}

void SecretStoreTest::doesWithoutABus()
{
    for (const char *address : {"", "unix:path=/none/such"}) {
        qputenv("DBUS_SESSION_BUS_ADDRESS", address);
        QVERIFY(!KeychainStore::ofSession());
    }
}

void SecretStoreTest::cleanupTestCase()
{
    m_bus.terminate();
    m_bus.waitForFinished();
}

HALVORA_SUITE_MAIN(SecretStoreTest)

#include "tst_secretstore.moc"
