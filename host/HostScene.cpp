// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "HostScene.h"

#include "HostController.h"
#include "HostLog.h"
#include "HostPreferences.h"
#include "LinkNews.h"
#include "PluginGate.h"
#include "QmlModules.h"

#include <QQmlContext>
#include <QQuickWindow>
#include <QTimer>

HostScene::HostScene(const PluginGate &gate, HostController *controller, HostPreferences *preferences)
    : m_controller(controller), m_preferences(preferences)
{
    gate.initialize(&m_engine);
    static const int theme = qmlRegisterSingletonType(QUrl(QStringLiteral("qrc:/host/HostTheme.qml")),
                                                      "halvora.host", 1, 0, "HostTheme");
    static const int news = qmlRegisterType<LinkNews>("halvora.host", 1, 0, "LinkNews");
    Q_UNUSED(theme)
    Q_UNUSED(news)
    QObject::connect(preferences, &HostPreferences::languageChanged, &m_engine, &QQmlEngine::retranslate);
    QObject::connect(preferences, &HostPreferences::notKept, controller, &HostController::setProblem);
}

HostScene::~HostScene() = default;

bool HostScene::show(bool smallScreen, const QSize &size, WindowPlace::Memory place)
{
    m_error = missingModules(m_engine);
    if (!m_error.isEmpty())
        return false;
    m_engine.rootContext()->setContextProperty(QStringLiteral("smallScreen"), smallScreen);
    m_engine.setInitialProperties({
        {QStringLiteral("host"), QVariant::fromValue<QObject *>(m_controller)},
        {QStringLiteral("preferences"), QVariant::fromValue<QObject *>(m_preferences)},
    });
    m_engine.load(QUrl(QStringLiteral("qrc:/host/Main.qml")));
    if (!window()) {
        m_error = tr("The host's window cannot be made.");
        return false;
    }
    QObject::connect(window(), &QQuickWindow::sceneGraphError, window(),
                     [this](QQuickWindow::SceneGraphError, const QString &reason) { fail(reason); });
    m_place = std::make_unique<WindowPlace>(window(), size, place);
    m_place->show(m_preferences->isFullScreen());
    QObject::connect(m_preferences, &HostPreferences::fullScreenChanged, window(),
                     [this] { m_place->show(m_preferences->isFullScreen()); });
    return true;
}

// Without a listener Qt would abort. There may be no event loop yet to be left.
void HostScene::fail(const QString &reason)
{
    qCDebug(lcHost) << reason;
    m_error = tr("The window cannot be drawn, as there is no working OpenGL.");
    QTimer::singleShot(0, QCoreApplication::instance(), [] { QCoreApplication::exit(1); });
}

QQuickWindow *HostScene::window() const
{
    return m_engine.rootObjects().isEmpty() ? nullptr
                                            : qobject_cast<QQuickWindow *>(m_engine.rootObjects().first());
}
