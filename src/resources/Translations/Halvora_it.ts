<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<!-- SPDX-FileCopyrightText: The Halvora client authors -->
<!-- SPDX-License-Identifier: Apache-2.0 -->
<TS version="2.1" language="it_IT" sourcelanguage="en">
<context>
    <name>DynamicTranslator</name>
    <message>
        <source>Tracks</source>
        <translation>Tracce</translation>
    </message>
    <message>
        <source>Albums</source>
        <translation>Album</translation>
    </message>
    <message>
        <source>Artists</source>
        <translation>Artisti</translation>
    </message>
    <message>
        <source>All services</source>
        <translation>Tutti i servizi</translation>
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
        <translation>File locali</translation>
    </message>
    <message>
        <source>Local playlists</source>
        <translation>Playlist locali</translation>
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
        <translation>Archivio Internet</translation>
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
        <translation>Riproduci ora</translation>
    </message>
    <message>
        <source>Play All Now</source>
        <translation>Riroduci tutto ora</translation>
    </message>
    <message>
        <source>Play Track Next</source>
        <translation>Riproduci dopo la traccia corrente</translation>
    </message>
    <message>
        <source>Add to Queue</source>
        <translation>Aggiungi alla coda</translation>
    </message>
    <message>
        <source>Add All to Queue</source>
        <translation>Aggiungi tutto alla coda</translation>
    </message>
    <message>
        <source>Add to Playlist</source>
        <translation>Aggiungi a playlist</translation>
    </message>
    <message>
        <source>Add All to Playlist</source>
        <translation>Aggiungi tutto a playlist</translation>
    </message>
    <message>
        <source>Remove from Queue</source>
        <translation>Rimuovi dalla coda</translation>
    </message>
    <message>
        <source>Show Album</source>
        <translation>Mostra album</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Rinomina</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Elimina</translation>
    </message>
    <message>
        <source>Associate</source>
        <translation>Associa</translation>
    </message>
    <message>
        <source>Automatically play when inserted</source>
        <translation>Riproduci automaticamente all&apos;inserimento</translation>
    </message>
    <message>
        <source>Country</source>
        <translation>Paese</translation>
    </message>
    <message>
        <source>Enable mono</source>
        <translation>Abilita mono</translation>
    </message>
    <message>
        <source>Enabled</source>
        <translation>Abilitato</translation>
    </message>
    <message>
        <source>Expansions</source>
        <translation>Espansioni</translation>
    </message>
    <message>
        <source>Firmware version</source>
        <translation>Versione firmware</translation>
    </message>
    <message>
        <source>Hardware version</source>
        <translation>Versione hardware</translation>
    </message>
    <message>
        <source>Icon</source>
        <translation>Icona</translation>
    </message>
    <message>
        <source>Maximum volume</source>
        <translation>Volume massimo</translation>
    </message>
    <message>
        <source>Minimum volume</source>
        <translation>Volume minimo</translation>
    </message>
    <message>
        <source>Mix</source>
        <translation>Mix</translation>
    </message>
    <message>
        <source>Mix volume</source>
        <translation>Volume mix</translation>
    </message>
    <message>
        <source>Model</source>
        <translation>Modello</translation>
    </message>
    <message>
        <source>NAS</source>
        <translation>NAS</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Nome</translation>
    </message>
    <message>
        <source>Network storage</source>
        <translation>Archivio di rete</translation>
    </message>
    <message>
        <source>Outputs</source>
        <translation>Output</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>Password</translation>
    </message>
    <message>
        <source>Path</source>
        <translation>Percorso</translation>
    </message>
    <message>
        <source>Permits only some inputs</source>
        <translation>Ingressi abilitati</translation>
    </message>
    <message>
        <source>Player to use</source>
        <translation>Player da utilizzare</translation>
    </message>
    <message>
        <source>Players</source>
        <translation>Player</translation>
    </message>
    <message>
        <source>Preamplified volume</source>
        <translation>Volume preamplificato</translation>
    </message>
    <message>
        <source>Refresh libraries</source>
        <translation>Aggiorna librerie</translation>
    </message>
    <message>
        <source>Serial</source>
        <translation>Numero di serie</translation>
    </message>
    <message>
        <source>Services</source>
        <translation>Servizi</translation>
    </message>
    <message>
        <source>Sources</source>
        <translation>Sorgenti</translation>
    </message>
    <message>
        <source>This Halvora</source>
        <translation>Questo Halvora</translation>
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
        <translation>Nome utente</translation>
    </message>
    <message>
        <source>Users</source>
        <translation>Utenti</translation>
    </message>
    <message>
        <source>iTunes Podcasts</source>
        <translation>Podcast di iTunes</translation>
    </message>
</context>
<context>
    <name>HalvoraConnThread</name>
    <message>
        <source>Authentication failed.</source>
        <translation>Autenticazione fallita.</translation>
    </message>
</context>
</TS>
