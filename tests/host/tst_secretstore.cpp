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

QString u(const char *text)
{
    return QString::fromUtf8(text);
}

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
    void takesNoBusForAStore_data();
    void takesNoBusForAStore();
    void doesWithoutABus_data();
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
    const QString daemon = QStandardPaths::findExecutable(u("dbus-daemon"));
    if (daemon.isEmpty())
        QSKIP("there is no dbus-daemon");
    if (m_address.isEmpty()) {
        QFile file(m_folder.filePath(u("bus.conf")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(u(configuration).arg(m_folder.path()).toUtf8());
        file.close();
        m_bus.start(daemon, {u("--nofork"), u("--print-address"), u("--config-file"), file.fileName()});
        QVERIFY2(m_bus.waitForReadyRead(), m_bus.readAllStandardError());
        m_address = m_bus.readLine().trimmed();
    }
    qputenv("DBUS_SESSION_BUS_ADDRESS", m_address);
}

void SecretStoreTest::takesAStoreThatIsOnTheBus_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("Secret Service") << u("org.freedesktop.secrets");
    QTest::newRow("KWallet") << u("org.kde.kwalletd5");
}

void SecretStoreTest::takesAStoreThatIsOnTheBus()
{
    QFETCH(QString, name);
    QVERIFY(!KeychainStore::ofSession());
    QDBusConnection keeper = QDBusConnection::connectToBus(QString::fromUtf8(m_address), u("keeper"));
    QVERIFY(keeper.registerService(name));
    QVERIFY(KeychainStore::ofSession());
    QVERIFY(keeper.unregisterService(name));
    QDBusConnection::disconnectFromBus(u("keeper"));
}

void SecretStoreTest::takesNoBusForAStore_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("nobody else") << QString();
    QTest::newRow("something else") << u("org.freedesktop.Notifications");
}

void SecretStoreTest::takesNoBusForAStore()
{
    QFETCH(QString, name);
    QDBusConnection other = QDBusConnection::connectToBus(QString::fromUtf8(m_address), u("other"));
    QVERIFY(other.isConnected() && (name.isEmpty() || other.registerService(name)));
    QVERIFY(!KeychainStore::ofSession());
    QDBusConnection::disconnectFromBus(u("other"));
}

void SecretStoreTest::doesWithoutABus_data()
{
    QTest::addColumn<QByteArray>("address");
    QTest::newRow("none") << QByteArray();
    QTest::newRow("nobody there") << QByteArray("unix:path=/none/such");
}

void SecretStoreTest::doesWithoutABus()
{
    QFETCH(QByteArray, address);
    qputenv("DBUS_SESSION_BUS_ADDRESS", address);
    QVERIFY(!KeychainStore::ofSession());
}

void SecretStoreTest::cleanupTestCase()
{
    m_bus.terminate();
    m_bus.waitForFinished();
}

HALVORA_SUITE_MAIN(SecretStoreTest)

#include "tst_secretstore.moc"
