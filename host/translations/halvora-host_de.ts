<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>ConnectionState</name>
    <message>
        <source>Connected to the demo.</source>
        <translation>Mit der Demo verbunden.</translation>
    </message>
    <message>
        <source>Connected to %1.</source>
        <translation>Mit %1 verbunden.</translation>
    </message>
    <message>
        <source>Waiting for the device to accept %1. A refusal looks the same.</source>
        <translation>Warten, dass das Gerät %1 annimmt. Eine Ablehnung sieht genauso aus.</translation>
    </message>
    <message>
        <source>The device does not accept %1 with this password.</source>
        <translation>Das Gerät nimmt %1 mit diesem Passwort nicht an.</translation>
    </message>
    <message>
        <source>The connection was lost; trying again.</source>
        <translation>Die Verbindung ist abgebrochen; neuer Versuch läuft.</translation>
    </message>
    <message>
        <source>Reaching for %1 ...</source>
        <translation>%1 wird gesucht ...</translation>
    </message>
</context>
<context>
    <name>DeviceEntry</name>
    <message>
        <source>The address of the device is missing.</source>
        <translation>Die Adresse des Geräts fehlt.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no address; a name or, for example, 192.168.1.20 is.</source>
        <translation>„%1“ ist keine Adresse; ein Name oder zum Beispiel 192.168.1.20 ist eine.</translation>
    </message>
    <message>
        <source>The port is a number from 1 to 65535.</source>
        <translation>Der Port ist eine Zahl von 1 bis 65535.</translation>
    </message>
    <message>
        <source>The name of the user is missing.</source>
        <translation>Der Name des Benutzers fehlt.</translation>
    </message>
    <message>
        <source>The name of the user cannot hold &quot;|&quot;.</source>
        <translation>Der Name des Benutzers kann kein „|“ enthalten.</translation>
    </message>
</context>
<context>
    <name>DeviceForm</name>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>as the address</source>
        <translation>wie die Adresse</translation>
    </message>
    <message>
        <source>Address of the device</source>
        <translation>Adresse des Geräts</translation>
    </message>
    <message>
        <source>Port</source>
        <translation>Port</translation>
    </message>
    <message>
        <source>User</source>
        <translation>Benutzer</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>Passwort</translation>
    </message>
</context>
<context>
    <name>DeviceRow</name>
    <message>
        <source>Change</source>
        <translation>Ändern</translation>
    </message>
    <message>
        <source>Forget</source>
        <translation>Entfernen</translation>
    </message>
</context>
<context>
    <name>HostController</name>
    <message>
        <source>The network knows no &quot;%1&quot;.</source>
        <translation>„%1“ ist im Netzwerk nicht bekannt.</translation>
    </message>
    <message>
        <source>The password is missing.</source>
        <translation>Das Passwort fehlt.</translation>
    </message>
    <message>
        <source>This device is in the list already.</source>
        <translation>Dieses Gerät steht schon in der Liste.</translation>
    </message>
    <message>
        <source>The demo does not start: %1</source>
        <translation>Die Demo startet nicht: %1</translation>
    </message>
</context>
<context>
    <name>HostOptions</name>
    <message>
        <source>Desktop host of the Halvora client: rooms, sources and music of one device. Without --demo or
--device it shows the device that was chosen last, or asks for one.

The password of --device is read from --password-file, else from the environment variable
HALVORA_PASSWORD, else from a prompt on the terminal.</source>
        <translation>Desktop-Anwendung des Halvora-Clients: Räume, Quellen und Musik eines Geräts. Ohne --demo und
--device zeigt sie das zuletzt gewählte Gerät oder fragt nach einem.

Das Passwort für --device kommt aus --password-file, sonst aus der Umgebungsvariablen
HALVORA_PASSWORD, sonst von einer Eingabe am Terminal.</translation>
    </message>
    <message>
        <source>Show this help.</source>
        <translation>Diese Hilfe zeigen.</translation>
    </message>
    <message>
        <source>Show the version.</source>
        <translation>Die Version zeigen.</translation>
    </message>
    <message>
        <source>Show a simulated house; nothing else is needed.</source>
        <translation>Ein simuliertes Haus zeigen; sonst ist nichts nötig.</translation>
    </message>
    <message>
        <source>Connect to the device at this address.</source>
        <translation>Mit dem Gerät unter dieser Adresse verbinden.</translation>
    </message>
    <message>
        <source>User name at the device.</source>
        <translation>Benutzername am Gerät.</translation>
    </message>
    <message>
        <source>File whose first line is the password.</source>
        <translation>Datei, deren erste Zeile das Passwort ist.</translation>
    </message>
    <message>
        <source>With --demo: offer this Mopidy server as a source.</source>
        <translation>Mit --demo: diesen Mopidy-Server als Quelle anbieten.</translation>
    </message>
    <message>
        <source>en, de or it; the one of the settings by default, else the system&apos;s.</source>
        <translation>en, de oder it; sonst die Sprache der Einstellungen oder des Systems.</translation>
    </message>
    <message>
        <source>Lay dialogs out for a small screen.</source>
        <translation>Dialoge für einen kleinen Bildschirm auslegen.</translation>
    </message>
    <message>
        <source>Take the whole screen; F11 gives it back.</source>
        <translation>Den ganzen Bildschirm füllen; F11 gibt ihn wieder frei.</translation>
    </message>
    <message>
        <source>Size of the window in pixels, for example 360x640.</source>
        <translation>Größe des Fensters in Pixeln, zum Beispiel 360x640.</translation>
    </message>
    <message>
        <source>Walk through the screens, write a picture of each to this folder and end; a warning on
the way is a failure. Outside of the plain --demo: the first four screens.</source>
        <translation>Durch die Ansichten gehen, von jeder ein Bild in diesen Ordner schreiben und enden; eine
Warnung unterwegs ist ein Fehler. Außerhalb der reinen --demo: die ersten vier Ansichten.</translation>
    </message>
    <message>
        <source>--%1 needs HOST:PORT, for example %2, not &quot;%3&quot;.</source>
        <translation>--%1 verlangt HOST:PORT, zum Beispiel %2, nicht „%3“.</translation>
    </message>
    <message>
        <source>The argument &quot;%1&quot; is not known.</source>
        <translation>Das Argument „%1“ ist nicht bekannt.</translation>
    </message>
    <message>
        <source>--mopidy can only be used with --demo.</source>
        <translation>--mopidy geht nur mit --demo.</translation>
    </message>
    <message>
        <source>Use either --demo or --device, not both.</source>
        <translation>Entweder --demo oder --device, nicht beides.</translation>
    </message>
    <message>
        <source>--user and --password-file can only be used with --device.</source>
        <translation>--user und --password-file gehen nur mit --device.</translation>
    </message>
    <message>
        <source>--device needs --user NAME as well.</source>
        <translation>--device verlangt auch --user NAME.</translation>
    </message>
    <message>
        <source>--user cannot hold &quot;|&quot;.</source>
        <translation>--user kann kein „|“ enthalten.</translation>
    </message>
    <message>
        <source>--language knows en, de and it, not &quot;%1&quot;.</source>
        <translation>--language kennt en, de und it, nicht „%1“.</translation>
    </message>
    <message>
        <source>--size needs WIDTHxHEIGHT from %1x%2 on, for example 360x640, not &quot;%3&quot;.</source>
        <translation>--size verlangt WIDTHxHEIGHT ab %1x%2, zum Beispiel 360x640, nicht „%3“.</translation>
    </message>
    <message>
        <source>--tour needs the name of a folder.</source>
        <translation>--tour verlangt den Namen eines Ordners.</translation>
    </message>
    <message>
        <source>--tour can only be used with --demo or --device.</source>
        <translation>--tour geht nur mit --demo oder --device.</translation>
    </message>
</context>
<context>
    <name>HostPreferences</name>
    <message>
        <source>The settings name a language that is not known: &quot;%1&quot;.</source>
        <translation>Die Einstellungen nennen eine unbekannte Sprache: „%1“.</translation>
    </message>
</context>
<context>
    <name>HostScene</name>
    <message>
        <source>The host&apos;s window cannot be made.</source>
        <translation>Das Fenster lässt sich nicht anlegen.</translation>
    </message>
    <message>
        <source>The window cannot be drawn, as there is no working OpenGL.</source>
        <translation>Das Fenster lässt sich nicht zeichnen, da OpenGL hier nicht funktioniert.</translation>
    </message>
</context>
<context>
    <name>HostSettings</name>
    <message>
        <source>The settings are damaged; new ones are begun, the old ones are in &quot;%1&quot;.</source>
        <translation>Die Einstellungen sind beschädigt; neue werden begonnen, die alten liegen in „%1“.</translation>
    </message>
    <message>
        <source>The settings cannot be written: %1.</source>
        <translation>Die Einstellungen lassen sich nicht schreiben: %1.</translation>
    </message>
    <message>
        <source>The settings are damaged and cannot be put aside as &quot;%1&quot;.</source>
        <translation>Die Einstellungen sind beschädigt und lassen sich nicht als „%1“ beiseitelegen.</translation>
    </message>
</context>
<context>
    <name>KeychainStore</name>
    <message>
        <source>The password could not be read: %1.</source>
        <translation>Das Passwort konnte nicht gelesen werden: %1.</translation>
    </message>
    <message>
        <source>The password could not be kept: %1.</source>
        <translation>Das Passwort konnte nicht aufbewahrt werden: %1.</translation>
    </message>
    <message>
        <source>The password could not be forgotten: %1.</source>
        <translation>Das Passwort konnte nicht gelöscht werden: %1.</translation>
    </message>
</context>
<context>
    <name>MusicServers</name>
    <message>
        <source>The music server of %1 does not answer.</source>
        <translation>Der Musikserver von %1 antwortet nicht.</translation>
    </message>
    <message>
        <source>The music servers of %1 do not answer.</source>
        <translation>Die Musikserver von %1 antworten nicht.</translation>
    </message>
</context>
<context>
    <name>Notice</name>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>Password</name>
    <message>
        <source>The password file &quot;%1&quot; cannot be read: %2.</source>
        <translation>Die Passwortdatei „%1“ ist nicht lesbar: %2.</translation>
    </message>
    <message>
        <source>Password for %1: </source>
        <translation>Passwort für %1: </translation>
    </message>
    <message>
        <source>No password was given.</source>
        <translation>Es wurde kein Passwort eingegeben.</translation>
    </message>
    <message>
        <source>--device needs a password: give --password-file FILE, set HALVORA_PASSWORD, or start it on a terminal.</source>
        <translation>--device verlangt ein Passwort: --password-file FILE angeben, HALVORA_PASSWORD setzen oder am Terminal starten.</translation>
    </message>
    <message>
        <source>The password is empty.</source>
        <translation>Das Passwort ist leer.</translation>
    </message>
</context>
<context>
    <name>PluginGate</name>
    <message>
        <source>The client library was not found; tried %1.</source>
        <translation>Die Client-Bibliothek wurde nicht gefunden; versucht: %1.</translation>
    </message>
    <message>
        <source>it is no QML extension</source>
        <translation>sie ist keine QML-Erweiterung</translation>
    </message>
    <message>
        <source>The client library %1 cannot be used: %2.</source>
        <translation>Die Client-Bibliothek %1 ist nicht verwendbar: %2.</translation>
    </message>
</context>
<context>
    <name>QmlModules</name>
    <message>
        <source>%1 (Debian package %2)</source>
        <translation>%1 (Debian-Paket %2)</translation>
    </message>
    <message>
        <source>These QML modules are missing or do not load: %1.</source>
        <translation>Diese QML-Module fehlen oder lassen sich nicht laden: %1.</translation>
    </message>
</context>
<context>
    <name>ScreenshotTour</name>
    <message>
        <source>The folder &quot;%1&quot; cannot be made.</source>
        <translation>Der Ordner „%1“ lässt sich nicht anlegen.</translation>
    </message>
    <message>
        <source>The screen &quot;%1&quot; did not come.</source>
        <translation>Die Ansicht „%1“ ist nicht erschienen.</translation>
    </message>
    <message>
        <source>The picture &quot;%1&quot; cannot be written.</source>
        <translation>Das Bild „%1“ lässt sich nicht schreiben.</translation>
    </message>
</context>
<context>
    <name>SettingsPage</name>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Devices</source>
        <translation>Geräte</translation>
    </message>
    <message>
        <source>Another device</source>
        <translation>Weiteres Gerät</translation>
    </message>
    <message>
        <source>Change the device</source>
        <translation>Gerät ändern</translation>
    </message>
    <message>
        <source>Add a device</source>
        <translation>Gerät hinzufügen</translation>
    </message>
    <message>
        <source>Passwords are kept in the secret store of this desktop.</source>
        <translation>Passwörter liegen im Passwortspeicher dieses Desktops.</translation>
    </message>
    <message>
        <source>This desktop has no secret store: passwords are asked for at each start.</source>
        <translation>Dieser Desktop hat keinen Passwortspeicher: Passwörter werden bei jedem Start erfragt.</translation>
    </message>
    <message>
        <source>as it is</source>
        <translation>wie bisher</translation>
    </message>
    <message>
        <source>Keep</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Sprache</translation>
    </message>
    <message>
        <source>Leave the full screen (F11)</source>
        <translation>Vollbild beenden (F11)</translation>
    </message>
    <message>
        <source>Take the whole screen (F11)</source>
        <translation>Vollbild (F11)</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
</context>
<context>
    <name>StartPage</name>
    <message>
        <source>Which device is it? Whoever set it up knows its address, port and user.</source>
        <translation>Welches Gerät soll es sein? Wer es eingerichtet hat, kennt Adresse, Port und Benutzer.</translation>
    </message>
    <message>
        <source>Connect</source>
        <translation>Verbinden</translation>
    </message>
    <message>
        <source>Try the demo</source>
        <translation>Demo ausprobieren</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>The client library has no catalogue &quot;%1&quot;.</source>
        <translation>Die Client-Bibliothek hat keinen Katalog „%1“.</translation>
    </message>
    <message>
        <source>There is no display to open a window on.</source>
        <translation>Es gibt keine Anzeige, auf der sich ein Fenster öffnen ließe.</translation>
    </message>
    <message>
        <source>The tour gave warnings: %1.</source>
        <translation>Der Rundgang gab Warnungen: %1.</translation>
    </message>
</context>
</TS>
