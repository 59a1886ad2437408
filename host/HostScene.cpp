// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "HostScene.h"

#include "PluginGate.h"
#include "QmlModules.h"

#include <QQmlContext>
#include <QQuickWindow>

HostScene::HostScene(const PluginGate &gate)
{
    gate.initialize(&m_engine);
}

bool HostScene::show(const DeviceAccess &access, bool smallScreen, const QSize &size)
{
    m_error = missingModules(&m_engine);
    if (!m_error.isEmpty())
        return false;
    m_engine.rootContext()->setContextProperty(QStringLiteral("smallScreen"), smallScreen);
    QVariantMap properties{
        {QStringLiteral("deviceHost"), access.address.host},
        {QStringLiteral("devicePort"), int(access.address.port)},
        {QStringLiteral("deviceUser"), access.user},
        {QStringLiteral("devicePassword"), access.password},
    };
    if (size.isValid()) {
        properties.insert(QStringLiteral("width"), size.width());
        properties.insert(QStringLiteral("height"), size.height());
    }
    m_engine.setInitialProperties(properties);
    m_engine.load(QUrl(QStringLiteral("qrc:/host/Main.qml")));
    if (!window())
        m_error = QStringLiteral("The host's window cannot be made.");
    return window() != nullptr;
}

QQuickWindow *HostScene::window() const
{
    return m_engine.rootObjects().isEmpty() ? nullptr
                                            : qobject_cast<QQuickWindow *>(m_engine.rootObjects().first());
}
