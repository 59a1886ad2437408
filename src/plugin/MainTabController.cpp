// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "plugin/MainTabController.h"

#include "images/AsyncImageProvider.h"
#include "images/ImageDownloader.h"
#include "link/Device.h"
#include "model/Halvora.h"
#include "player/Reclaimer.h"
#include "screens/DynamicTranslator.h"
#include "screens/OutputsView.h"
#include "screens/PlayerView.h"
#include "screens/Theme.h"

#include <QFile>
#include <QJsonDocument>
#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>

namespace {

constexpr int shownWidth = 450;
constexpr int shownHeight = 640;

std::unique_ptr<Device> newDevice(const QObject *host)
{
    auto device = std::make_unique<Device>();
    device->setLocalIp(host->property("localIp").toString());
    device->setLocalPort(host->property("localPort").toInt());
    device->setUsername(host->property("username").toString());
    device->setPassword(host->property("password").toString());
    return device;
}

} // namespace

MainTabController::MainTabController(QQuickItem *parent) : QQuickItem(parent)
{
    ImageDownloader::instance(); // its thread takes a moment to start
    connect(&m_link, &HalvoraConnThread::firstConnected, this, &MainTabController::firstConnected);
    DynamicTranslator::loadTranslations();
}

// The screens go while their engine is there, and the models after the screens that show them.
MainTabController::~MainTabController()
{
    didEnterBackground();
    for (Halvora *halvora : qAsConst(m_halvoras))
        halvora->stopAllPlayers();
    delete m_outputsView;
    delete m_playerView;
    Reclaimer::dropAll(m_halvoras);
}

void MainTabController::setMenuListView(QQuickItem *item)
{
    if (m_menuListView)
        m_menuListView->disconnect(this);
    m_menuListView = item;
    Q_EMIT menuListViewChanged();
    if (item)
        connect(item, SIGNAL(currentIndexChanged()), this, SLOT(menuListViewIndexChanged()));
}

void MainTabController::setContainerView(QQuickItem *item)
{
    m_containerView = item;
    Q_EMIT containerViewChanged();
}

void MainTabController::tabLoadingCompleted()
{
    Reclaimer::begin(qmlEngine(this));
    qmlEngine(this)->addImageProvider(QStringLiteral("async"), new AsyncImageProvider);
    publishTheme();
    qmlEngine(this)->rootContext()->setContextProperty(QStringLiteral("selectedLang"), QStringLiteral("en"));
    loadViews();
}

void MainTabController::publishTheme()
{
    QFile file(QStringLiteral(":/Themes/theme0.json"));
    if (!file.open(QIODevice::ReadOnly))
        return;
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll());
    if (!document.isObject())
        return;
    auto *theme = new Theme(document.object(), nullptr);
    qmlEngine(this)->rootContext()->setContextProperty(QStringLiteral("currentTheme"), theme);
    // It has no parent, but goes with the engine, whose contexts know it by its name.
    connect(qmlEngine(this), &QObject::destroyed, theme, [theme] { delete theme; });
}

template<typename View>
View *MainTabController::newView(const QString &url)
{
    QQmlComponent component(qmlEngine(this), QUrl(url), QQmlComponent::PreferSynchronous);
    if (!component.isReady())
        return nullptr;
    auto *view = qobject_cast<View *>(component.create(qmlContext(this)));
    if (!view)
        return nullptr;
    connect(view, SIGNAL(requireSelectOutput(int)), this, SLOT(openPlayerViewWithOutput(int)));
    // By way of this object: what is still queued when it goes must not reach a screen whose engine is gone.
    connect(&m_link, &HalvoraConnThread::showConnectionScreen, this,
            [view](bool show) { view->showConnectionScreen(show); });
    connect(&m_link, &HalvoraConnThread::setConnectionScreenMessage, this,
            [view](const QString &message) { view->setConnectionScreenMessage(message); });
    return view;
}

void MainTabController::loadViews()
{
    if (!m_outputsView)
        m_outputsView = newView<OutputsView>(QStringLiteral("qrc:/Qml/OutputsView.qml"));
    if (!m_playerView) {
        m_playerView = newView<PlayerView>(QStringLiteral("qrc:/Qml/PlayerView.qml"));
        if (m_playerView) {
            connect(m_playerView, &PlayerView::selectedOutputChanged, this,
                    &MainTabController::playerViewOutputChanged);
        }
    }
    // A link that was started before the screens has said things that nobody heard. The host's next
    // requestConnect() starts it again with both screens listening.
    if (m_halvora && m_halvora->connPointer())
        didEnterBackground();
}

void MainTabController::initDevice(QObject *device)
{
    if (!device)
        return;
    if (m_hostDevice)
        m_hostDevice->disconnect(this);
    m_hostDevice = device;
    connect(device, SIGNAL(requestConnect()), this, SLOT(didEnterForeground()));
    connect(device, SIGNAL(requestDisconnect()), this, SLOT(didEnterBackground()));
    m_records.push_back(newDevice(device));
    m_halvora = new Halvora;
    m_halvoras.append(m_halvora);
    m_halvora->setConnPointer(&m_link);
    m_link.setDevice(m_records.back().get());
    didEnterForeground();
}

void MainTabController::showIcon()
{
    if (!m_hostDevice)
        return;
    setX(m_hostDevice->property("posX").toInt());
    setY(m_hostDevice->property("posY").toInt());
    setWidth(shownWidth);
    setHeight(shownHeight);
    setVisible(true);
}

template<typename View>
void MainTabController::takeDown(View *view)
{
    if (!view)
        return;
    view->setHalvora(nullptr);
    view->setVisible(false);
    view->setParentItem(nullptr);
}

template<typename View>
void MainTabController::bringUp(View *view)
{
    if (!view)
        return;
    view->setParentItem(m_containerView);
    view->setVisible(true);
    view->setHalvora(m_halvora);
}

void MainTabController::menuListViewIndexChanged()
{
    const int tab = m_menuListView->property("currentIndex").toInt();
    if (tab == m_currentTab)
        return;
    if (m_currentTab == OutputsTab) {
        takeDown(m_outputsView);
    } else if (m_currentTab == PlayerTab) {
        if (m_playerView)
            QMetaObject::invokeMethod(m_playerView, "closeAllPopups");
        takeDown(m_playerView);
    }
    m_currentTab = tab;
    if (!m_containerView)
        return;
    if (tab == OutputsTab) {
        bringUp(m_outputsView);
        if (m_outputsView)
            QMetaObject::invokeMethod(m_outputsView, "loadOutputs");
    } else if (tab == PlayerTab) {
        bringUp(m_playerView);
    }
}

void MainTabController::openPlayerViewWithOutput(int output)
{
    if (output == -1 || !m_halvora || !m_menuListView)
        return;
    m_menuListView->setProperty("currentIndex", int(PlayerTab));
    if (m_playerView)
        m_playerView->setSelectedOutput(m_halvora->outputAt(output));
}

void MainTabController::playerViewOutputChanged()
{
    if (m_playerView && m_playerView->selectedOutput())
        QMetaObject::invokeMethod(this, "playerButtonEnabled");
}

void MainTabController::didEnterBackground()
{
    if (!m_halvora)
        return;
    m_link.stopLink();
    for (const Source *source : m_halvora->sourceMap()) {
        if (source->player())
            source->player()->stopConnection();
    }
}

void MainTabController::didEnterForeground()
{
    if (!m_halvora)
        return;
    m_link.restartLink();
    for (const Source *source : m_halvora->sourceMap()) {
        if (source->player())
            source->player()->startConnection();
    }
}
