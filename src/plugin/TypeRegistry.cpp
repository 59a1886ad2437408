// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "plugin/TypeRegistry.h"

#include "link/Device.h"
#include "model/Halvora.h"
#include "model/Output.h"
#include "model/PlaylistEntry.h"
#include "model/Source.h"
#include "navigation/BrowseListView.h"
#include "navigation/BrowseNavigationController.h"
#include "navigation/NavigationBar.h"
#include "navigation/NavigationController.h"
#include "navigation/NavigationView.h"
#include "navigation/PlaylistNavController.h"
#include "navigation/SearchNavController.h"
#include "navigation/SearchRootView.h"
#include "player/HalvoraPlayer.h"
#include "player/PlayerItem.h"
#include "player/Playlist.h"
#include "player/Song.h"
#include "plugin/MainTabController.h"
#include "screens/DynamicTranslator.h"
#include "screens/OutputsView.h"
#include "screens/PlayerView.h"
#include "screens/Theme.h"

#include <QtQml>

namespace {

constexpr char translations[] = "com.kestrum.translations";
constexpr char halvoraint[] = "com.kestrum.halvoraint";
constexpr char logic[] = "com.kestrum.logic";

} // namespace

void registerHalvoraTypes()
{
    qmlRegisterType<DynamicTranslator>(translations, 1, 0, "DynamicTranslator");
    qmlRegisterType<Theme>(halvoraint, 1, 0, "Theme");
    qmlRegisterType<MainTabController>(halvoraint, 1, 0, "MainTabController");
    qmlRegisterType<OutputsView>(halvoraint, 1, 0, "OutputsView");
    qmlRegisterType<PlayerView>(halvoraint, 1, 0, "PlayerView");
    qmlRegisterType<NavigationView>(halvoraint, 1, 0, "NavigationView");
    qmlRegisterType<NavigationBar>(halvoraint, 1, 0, "NavigationBar");
    qmlRegisterType<NavigationController>(halvoraint, 1, 0, "NavigationController");
    qmlRegisterType<BrowseNavigationController>(halvoraint, 1, 0, "BrowseNavController");
    qmlRegisterType<SearchNavController>(halvoraint, 1, 0, "SearchNavController");
    qmlRegisterType<SearchRootView>(halvoraint, 1, 0, "SearchRootView");
    qmlRegisterType<BrowseListView>(halvoraint, 1, 0, "BrowseListView");
    qmlRegisterType<PlaylistNavController>(halvoraint, 1, 0, "PlaylistNavController");
    qmlRegisterType<PlayerItem>(logic, 1, 0, "PlayerItem");
    qmlRegisterType<Song>(logic, 1, 0, "Song");
    qmlRegisterType<PlaylistEntry>(logic, 1, 0, "PlaylistEntry");
    qmlRegisterType<Playlist>(logic, 1, 0, "Playlist");
    qmlRegisterType<HalvoraPlayer>(logic, 1, 0, "HalvoraPlayer");
    qmlRegisterType<Source>(logic, 1, 0, "Source");
    qmlRegisterType<Output>(logic, 1, 0, "Output");
    qmlRegisterType<Halvora>(logic, 1, 0, "Halvora");
    qmlRegisterType<Device>(logic, 1, 0, "Device");
}
