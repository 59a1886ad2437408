// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "HostController.h"

#include "ClientPopups.h"
#include "HostLog.h"

HostController::HostController(Demo demo, std::unique_ptr<SecretStore> secrets, QObject *parent)
    : QObject(parent), m_demo(std::move(demo)), m_secrets(std::move(secrets))
{
    connect(&m_devices, &DeviceBook::notKept, this, &HostController::setProblem);
    connect(&m_lookup, &NameLookup::unknown, this, &HostController::tellUnknownName);
    if (!m_secrets)
        return;
    connect(m_secrets.get(), &SecretStore::found, this, &HostController::takeSecret);
    connect(m_secrets.get(), &SecretStore::failed, this, &HostController::setProblem);
}

void HostController::setProblem(const Sentence &problem)
{
    m_problem = problem;
    m_nameIsProblem = false;
    Q_EMIT problemChanged();
}

void HostController::tellUnknownName(const QString &host)
{
    const Sentence problem = [host] { return tr("The network knows no \"%1\".").arg(host); };
    setProblem(problem);
    m_nameIsProblem = true;
    sayAtTerminal(problem());
}

void HostController::show(const QString &name, const DeviceAccess &access)
{
    setDevice({}, name, access);
}

void HostController::setDevice(const QString &id, const QString &name, const DeviceAccess &access,
                               Password origin)
{
    m_trying = origin == Password::Typed;
    m_awaited.clear();
    m_id = id;
    m_name = name;
    m_access = access;
    m_lookup.ask(access.address.host);
    Q_EMIT deviceChanged();
}

void HostController::showLast()
{
    if (m_devices.current() >= 0)
        choose(m_devices.current());
}

QString HostController::connectTo(const QVariantMap &typed)
{
    const DeviceEntry device = DeviceEntry::fromForm(typed);
    const QString password = typed.value(QStringLiteral("password")).toString();
    const QString wrong = device.complaint();
    if (!wrong.isEmpty())
        return wrong;
    if (password.isEmpty())
        return tr("The password is missing.");
    setProblem({});
    int row = m_devices.find(device);
    if (row < 0) {
        // One that has not answered is corrected. Any other address is another device, which gets no known password.
        row = m_devices.put(m_devices.rowOf(m_unproven), device);
        m_unproven = m_devices.entry(row).id;
    }
    m_devices.setCurrent(row);
    showRow(row, password, Password::Typed);
    return {};
}

QString HostController::keep(int row, const QVariantMap &typed)
{
    const DeviceEntry device = DeviceEntry::fromForm(typed);
    const QString wrong = device.complaint();
    if (!wrong.isEmpty())
        return wrong;
    const int same = m_devices.find(device);
    if (same >= 0 && same != row)
        return tr("This device is in the list already.");
    setProblem({});
    row = m_devices.put(row, device);
    const QString id = m_devices.entry(row).id;
    const QString password = typed.value(QStringLiteral("password")).toString();
    if (!password.isEmpty())
        keepSecret(id, password);
    if (id == m_id || (deviceHost().isEmpty() && row == m_devices.current()))
        choose(row);
    return {};
}

void HostController::choose(int row)
{
    const QString id = m_devices.entry(row).id;
    if (id.isEmpty())
        return;
    setProblem({});
    m_devices.setCurrent(row);
    if (m_passwords.contains(id))
        return showRow(row, m_passwords.value(id));
    setDevice({}, {}, {}); // a person may type it before a store that is locked has been opened
    m_awaited = id;
    if (m_secrets)
        m_secrets->read(id);
}

void HostController::takeSecret(const QString &id, const QString &secret)
{
    const int row = m_devices.rowOf(id);
    if (row < 0 || secret.isEmpty())
        return;
    if (!m_passwords.contains(id)) // what was typed meanwhile is newer
        m_passwords.insert(id, secret);
    if (id == m_awaited)
        showRow(row, m_passwords.value(id));
}

void HostController::showRow(int row, const QString &password, Password origin)
{
    const DeviceEntry device = m_devices.entry(row);
    setDevice(device.id, device.name, {{device.host, quint16(device.port)}, device.user, password}, origin);
}

void HostController::forget(int row)
{
    const QString id = m_devices.entry(row).id;
    if (id.isEmpty())
        return;
    m_passwords.remove(id);
    if (m_secrets)
        m_secrets->forget(id);
    m_devices.remove(row);
    if (id == m_id || id == m_awaited)
        setDevice({}, {}, {});
}

QString HostController::showDemo()
{
    DeviceAccess access;
    QString error;
    if (!m_demo(&access, &error))
        return tr("The demo does not start: %1").arg(error);
    setProblem({});
    show({}, access);
    return {};
}

void HostController::deviceAnswered()
{
    m_trying = false;
    m_unproven.clear();
    if (m_nameIsProblem)
        setProblem({});
    if (!m_id.isEmpty() && m_passwords.value(m_id) != m_access.password)
        keepSecret(m_id, m_access.password);
}

void HostController::keepSecret(const QString &id, const QString &secret)
{
    m_passwords.insert(id, secret);
    if (m_secrets)
        m_secrets->write(id, secret);
}

bool HostController::closePopup(QQuickItem *root) const
{
    return ClientPopups::closeTopmost(root);
}
