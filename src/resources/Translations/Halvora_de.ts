<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<!-- SPDX-FileCopyrightText: The Halvora client authors -->
<!-- SPDX-License-Identifier: Apache-2.0 -->
<TS version="2.1" language="de_DE" sourcelanguage="en">
<context>
    <name>DynamicTranslator</name>
    <message>
        <source>Tracks</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>Albums</source>
        <translation>Alben</translation>
    </message>
    <message>
        <source>Artists</source>
        <translation>Künstler</translation>
    </message>
    <message>
        <source>All services</source>
        <translation>Alle Dienste</translation>
    </message>
    <message>
        <source>Spotify</source>
        <translation>Spotify</translation>
    </message>
    <message>
        <source>Spotify browse</source>
        <translation>Spotify browse</translation>
    </message>
    <message>
        <source>Local files</source>
        <translation>Lokale Dateien</translation>
    </message>
    <message>
        <source>Local playlists</source>
        <translation>Lokale Wiedergabelisten</translation>
    </message>
    <message>
        <source>Podcasts</source>
        <translation>Podcasts</translation>
    </message>
    <message>
        <source>iTunes Store: Podcasts</source>
        <translation>iTunes Store: Podcasts</translation>
    </message>
    <message>
        <source>Dirble</source>
        <translation>Dirble</translation>
    </message>
    <message>
        <source>TuneIn</source>
        <translation>TuneIn</translation>
    </message>
    <message>
        <source>SoundCloud</source>
        <translation>SoundCloud</translation>
    </message>
    <message>
        <source>Google Music</source>
        <translation>Google Music</translation>
    </message>
    <message>
        <source>Internet Archive</source>
        <translation>Internet Archiv</translation>
    </message>
    <message>
        <source>Soma FM</source>
        <translation>Soma FM</translation>
    </message>
    <message>
        <source>YouTube</source>
        <translation>YouTube</translation>
    </message>
    <message>
        <source>AudioAddict</source>
        <translation>AudioAddict</translation>
    </message>
    <message>
        <source>Subsonic</source>
        <translation>Subsonic</translation>
    </message>
    <message>
        <source>Play Now</source>
        <translation>Jetzt wiedergeben</translation>
    </message>
    <message>
        <source>Play All Now</source>
        <translation>Jetzt alle wiedergeben</translation>
    </message>
    <message>
        <source>Play Track Next</source>
        <translation>Nach dem derzeitigen Titel wiedergeben</translation>
    </message>
    <message>
        <source>Add to Queue</source>
        <translation>Zur Wiedergabeliste hinzufügen</translation>
    </message>
    <message>
        <source>Add All to Queue</source>
        <translation>Alle zur Wiedergabeliste hinzufügen</translation>
    </message>
    <message>
        <source>Add to Playlist</source>
        <translation>Zur Playlist hinzufügen</translation>
    </message>
    <message>
        <source>Add All to Playlist</source>
        <translation>Alle zur Playlist hinzufügen</translation>
    </message>
    <message>
        <source>Remove from Queue</source>
        <translation>Von der Wiedergabeliste entfernen</translation>
    </message>
    <message>
        <source>Show Album</source>
        <translation>Album anzeigen</translation>
    </message>
    <message>
        <source>Automatically play when inserted</source>
        <translation>Beim Einstecken automatisch abspielen</translation>
    </message>
    <message>
        <source>Country</source>
        <translation>Land</translation>
    </message>
    <message>
        <source>Enable mono</source>
        <translation>Mono aktivieren</translation>
    </message>
    <message>
        <source>Enabled</source>
        <translation>Aktiviert</translation>
    </message>
    <message>
        <source>Expansions</source>
        <translation>Erweiterungen</translation>
    </message>
    <message>
        <source>Firmware version</source>
        <translation>Firmwareversion</translation>
    </message>
    <message>
        <source>Hardware version</source>
        <translation>Hardwareversion</translation>
    </message>
    <message>
        <source>Icon</source>
        <translation>Symbol</translation>
    </message>
    <message>
        <source>Maximum volume</source>
        <translation>Maximale Lautstärke</translation>
    </message>
    <message>
        <source>Minimum volume</source>
        <translation>Minimale Lautstärke</translation>
    </message>
    <message>
        <source>Mix</source>
        <translation>Mischen</translation>
    </message>
    <message>
        <source>Mix volume</source>
        <translation>Mischlautstärke</translation>
    </message>
    <message>
        <source>Model</source>
        <translation>Modell</translation>
    </message>
    <message>
        <source>NAS</source>
        <translation>NAS</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Network storage</source>
        <translation>Netzwerkspeicher</translation>
    </message>
    <message>
        <source>Outputs</source>
        <translation>Ausgänge</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>Passwort</translation>
    </message>
    <message>
        <source>Path</source>
        <translation>Pfad</translation>
    </message>
    <message>
        <source>Permits only some inputs</source>
        <translation>Erlaubt nur einige Eingänge</translation>
    </message>
    <message>
        <source>Player to use</source>
        <translation>Zu verwendender Player</translation>
    </message>
    <message>
        <source>Players</source>
        <translation>Player</translation>
    </message>
    <message>
        <source>Preamplified volume</source>
        <translation>Vorverstärkte Lautstärke</translation>
    </message>
    <message>
        <source>Refresh libraries</source>
        <translation>Bibliotheken aktualisieren</translation>
    </message>
    <message>
        <source>Serial</source>
        <translation>Seriennummer</translation>
    </message>
    <message>
        <source>Services</source>
        <translation>Dienste</translation>
    </message>
    <message>
        <source>Sources</source>
        <translation>Quellen</translation>
    </message>
    <message>
        <source>This Halvora</source>
        <translation>Dieser Halvora</translation>
    </message>
    <message>
        <source>Tunein</source>
        <translation>TuneIn</translation>
    </message>
    <message>
        <source>USB</source>
        <translation>USB</translation>
    </message>
    <message>
        <source>Username</source>
        <translation>Benutzername</translation>
    </message>
    <message>
        <source>Users</source>
        <translation>Benutzer</translation>
    </message>
    <message>
        <source>iTunes Podcasts</source>
        <translation>iTunes-Podcasts</translation>
    </message>
</context>
</TS>
