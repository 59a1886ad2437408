<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="it" sourcelanguage="en">
<context>
    <name>ConnectionState</name>
    <message>
        <source>Connected to the demo.</source>
        <translation>Connesso alla demo.</translation>
    </message>
    <message>
        <source>Connected to %1.</source>
        <translation>Connesso a %1.</translation>
    </message>
    <message>
        <source>Waiting for the device to accept %1. A refusal looks the same.</source>
        <translation>In attesa che il dispositivo accetti %1. Un rifiuto si presenta allo stesso modo.</translation>
    </message>
    <message>
        <source>The device does not accept %1 with this password.</source>
        <translation>Il dispositivo non accetta %1 con questa password.</translation>
    </message>
    <message>
        <source>The connection was lost; trying again.</source>
        <translation>La connessione è caduta; nuovo tentativo in corso.</translation>
    </message>
    <message>
        <source>Reaching for %1 ...</source>
        <translation>Ricerca di %1 ...</translation>
    </message>
</context>
<context>
    <name>DeviceEntry</name>
    <message>
        <source>The address of the device is missing.</source>
        <translation>Manca l&apos;indirizzo del dispositivo.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no address; a name or, for example, 192.168.1.20 is.</source>
        <translation>«%1» non è un indirizzo; lo è un nome o, per esempio, 192.168.1.20.</translation>
    </message>
    <message>
        <source>The port is a number from 1 to 65535.</source>
        <translation>La porta è un numero da 1 a 65535.</translation>
    </message>
    <message>
        <source>The name of the user is missing.</source>
        <translation>Manca il nome dell&apos;utente.</translation>
    </message>
    <message>
        <source>The name of the user cannot hold &quot;|&quot;.</source>
        <translation>Il nome dell&apos;utente non può contenere «|».</translation>
    </message>
</context>
<context>
    <name>DeviceForm</name>
    <message>
        <source>Name</source>
        <translation>Nome</translation>
    </message>
    <message>
        <source>as the address</source>
        <translation>come l&apos;indirizzo</translation>
    </message>
    <message>
        <source>Address of the device</source>
        <translation>Indirizzo del dispositivo</translation>
    </message>
    <message>
        <source>Port</source>
        <translation>Porta</translation>
    </message>
    <message>
        <source>User</source>
        <translation>Utente</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>Password</translation>
    </message>
</context>
<context>
    <name>DeviceRow</name>
    <message>
        <source>Change</source>
        <translation>Modifica</translation>
    </message>
    <message>
        <source>Forget</source>
        <translation>Rimuovi</translation>
    </message>
</context>
<context>
    <name>HostController</name>
    <message>
        <source>The network knows no &quot;%1&quot;.</source>
        <translation>La rete non conosce «%1».</translation>
    </message>
    <message>
        <source>The password is missing.</source>
        <translation>Manca la password.</translation>
    </message>
    <message>
        <source>This device is in the list already.</source>
        <translation>Questo dispositivo è già nell&apos;elenco.</translation>
    </message>
    <message>
        <source>The demo does not start: %1</source>
        <translation>La demo non si avvia: %1</translation>
    </message>
</context>
<context>
    <name>HostOptions</name>
    <message>
        <source>Desktop host of the Halvora client: rooms, sources and music of one device. Without --demo or
--device it shows the device that was chosen last, or asks for one.

The password of --device is read from --password-file, else from the environment variable
HALVORA_PASSWORD, else from a prompt on the terminal.</source>
        <translation>Applicazione desktop del client Halvora: stanze, sorgenti e musica di un dispositivo. Senza --demo e
--device mostra l&apos;ultimo dispositivo scelto, oppure ne chiede uno.

La password di --device viene letta da --password-file, altrimenti dalla variabile d&apos;ambiente
HALVORA_PASSWORD, altrimenti viene chiesta nel terminale.</translation>
    </message>
    <message>
        <source>Show this help.</source>
        <translation>Mostra questo aiuto.</translation>
    </message>
    <message>
        <source>Show the version.</source>
        <translation>Mostra la versione.</translation>
    </message>
    <message>
        <source>Show a simulated house; nothing else is needed.</source>
        <translation>Mostra una casa simulata; non serve altro.</translation>
    </message>
    <message>
        <source>Connect to the device at this address.</source>
        <translation>Si connette al dispositivo a questo indirizzo.</translation>
    </message>
    <message>
        <source>User name at the device.</source>
        <translation>Nome utente sul dispositivo.</translation>
    </message>
    <message>
        <source>File whose first line is the password.</source>
        <translation>File la cui prima riga è la password.</translation>
    </message>
    <message>
        <source>With --demo: offer this Mopidy server as a source.</source>
        <translation>Con --demo: offre questo server Mopidy come sorgente.</translation>
    </message>
    <message>
        <source>en, de or it; the one of the settings by default, else the system&apos;s.</source>
        <translation>en, de o it; altrimenti la lingua delle impostazioni o del sistema.</translation>
    </message>
    <message>
        <source>Lay dialogs out for a small screen.</source>
        <translation>Dispone le finestre di dialogo per uno schermo piccolo.</translation>
    </message>
    <message>
        <source>Take the whole screen; F11 gives it back.</source>
        <translation>Occupa tutto lo schermo; F11 lo libera.</translation>
    </message>
    <message>
        <source>Size of the window in pixels, for example 360x640.</source>
        <translation>Dimensioni della finestra in pixel, per esempio 360x640.</translation>
    </message>
    <message>
        <source>Walk through the screens, write a picture of each to this folder and end; a warning on
the way is a failure. Outside of the plain --demo: the first four screens.</source>
        <translation>Percorre le schermate, salva un&apos;immagine di ciascuna in questa cartella e termina; un avviso
lungo il percorso è un errore. Fuori dalla semplice --demo: le prime quattro schermate.</translation>
    </message>
    <message>
        <source>--%1 needs HOST:PORT, for example %2, not &quot;%3&quot;.</source>
        <translation>--%1 richiede HOST:PORT, per esempio %2, non «%3».</translation>
    </message>
    <message>
        <source>The argument &quot;%1&quot; is not known.</source>
        <translation>L&apos;argomento «%1» non è noto.</translation>
    </message>
    <message>
        <source>--mopidy can only be used with --demo.</source>
        <translation>--mopidy si può usare solo con --demo.</translation>
    </message>
    <message>
        <source>Use either --demo or --device, not both.</source>
        <translation>Usare --demo oppure --device, non entrambi.</translation>
    </message>
    <message>
        <source>--user and --password-file can only be used with --device.</source>
        <translation>--user e --password-file si possono usare solo con --device.</translation>
    </message>
    <message>
        <source>--device needs --user NAME as well.</source>
        <translation>--device richiede anche --user NAME.</translation>
    </message>
    <message>
        <source>--user cannot hold &quot;|&quot;.</source>
        <translation>--user non può contenere «|».</translation>
    </message>
    <message>
        <source>--language knows en, de and it, not &quot;%1&quot;.</source>
        <translation>--language conosce en, de e it, non «%1».</translation>
    </message>
    <message>
        <source>--size needs WIDTHxHEIGHT from %1x%2 on, for example 360x640, not &quot;%3&quot;.</source>
        <translation>--size richiede WIDTHxHEIGHT a partire da %1x%2, per esempio 360x640, non «%3».</translation>
    </message>
    <message>
        <source>--tour needs the name of a folder.</source>
        <translation>--tour richiede il nome di una cartella.</translation>
    </message>
    <message>
        <source>--tour can only be used with --demo or --device.</source>
        <translation>--tour si può usare solo con --demo o --device.</translation>
    </message>
</context>
<context>
    <name>HostPreferences</name>
    <message>
        <source>The settings name a language that is not known: &quot;%1&quot;.</source>
        <translation>Le impostazioni indicano una lingua sconosciuta: «%1».</translation>
    </message>
</context>
<context>
    <name>HostScene</name>
    <message>
        <source>The host&apos;s window cannot be made.</source>
        <translation>Impossibile creare la finestra.</translation>
    </message>
    <message>
        <source>The window cannot be drawn, as there is no working OpenGL.</source>
        <translation>Impossibile disegnare la finestra, perché OpenGL qui non funziona.</translation>
    </message>
</context>
<context>
    <name>HostSettings</name>
    <message>
        <source>The settings are damaged; new ones are begun, the old ones are in &quot;%1&quot;.</source>
        <translation>Le impostazioni sono danneggiate; se ne iniziano di nuove, le vecchie sono in «%1».</translation>
    </message>
    <message>
        <source>The settings cannot be written: %1.</source>
        <translation>Impossibile scrivere le impostazioni: %1.</translation>
    </message>
    <message>
        <source>The settings are damaged and cannot be put aside as &quot;%1&quot;.</source>
        <translation>Le impostazioni sono danneggiate e non si possono mettere da parte come «%1».</translation>
    </message>
</context>
<context>
    <name>KeychainStore</name>
    <message>
        <source>The password could not be read: %1.</source>
        <translation>Impossibile leggere la password: %1.</translation>
    </message>
    <message>
        <source>The password could not be kept: %1.</source>
        <translation>Impossibile conservare la password: %1.</translation>
    </message>
    <message>
        <source>The password could not be forgotten: %1.</source>
        <translation>Impossibile cancellare la password: %1.</translation>
    </message>
</context>
<context>
    <name>MusicServers</name>
    <message>
        <source>The music server of %1 does not answer.</source>
        <translation>Il server musicale di %1 non risponde.</translation>
    </message>
    <message>
        <source>The music servers of %1 do not answer.</source>
        <translation>I server musicali di %1 non rispondono.</translation>
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
        <translation>Impossibile leggere il file della password «%1»: %2.</translation>
    </message>
    <message>
        <source>Password for %1: </source>
        <translation>Password di %1: </translation>
    </message>
    <message>
        <source>No password was given.</source>
        <translation>Non è stata fornita alcuna password.</translation>
    </message>
    <message>
        <source>--device needs a password: give --password-file FILE, set HALVORA_PASSWORD, or start it on a terminal.</source>
        <translation>--device richiede una password: indicare --password-file FILE, impostare HALVORA_PASSWORD o avviare da un terminale.</translation>
    </message>
    <message>
        <source>The password is empty.</source>
        <translation>La password è vuota.</translation>
    </message>
</context>
<context>
    <name>PluginGate</name>
    <message>
        <source>The client library was not found; tried %1.</source>
        <translation>La libreria del client non è stata trovata; percorsi provati: %1.</translation>
    </message>
    <message>
        <source>it is no QML extension</source>
        <translation>non è un&apos;estensione QML</translation>
    </message>
    <message>
        <source>The client library %1 cannot be used: %2.</source>
        <translation>La libreria del client %1 non è utilizzabile: %2.</translation>
    </message>
</context>
<context>
    <name>QmlModules</name>
    <message>
        <source>%1 (Debian package %2)</source>
        <translation>%1 (pacchetto Debian %2)</translation>
    </message>
    <message>
        <source>These QML modules are missing or do not load: %1.</source>
        <translation>Questi moduli QML mancano o non si caricano: %1.</translation>
    </message>
</context>
<context>
    <name>ScreenshotTour</name>
    <message>
        <source>The folder &quot;%1&quot; cannot be made.</source>
        <translation>Impossibile creare la cartella «%1».</translation>
    </message>
    <message>
        <source>The screen &quot;%1&quot; did not come.</source>
        <translation>La schermata «%1» non è comparsa.</translation>
    </message>
    <message>
        <source>The picture &quot;%1&quot; cannot be written.</source>
        <translation>Impossibile scrivere l&apos;immagine «%1».</translation>
    </message>
</context>
<context>
    <name>SettingsPage</name>
    <message>
        <source>Settings</source>
        <translation>Impostazioni</translation>
    </message>
    <message>
        <source>Devices</source>
        <translation>Dispositivi</translation>
    </message>
    <message>
        <source>Another device</source>
        <translation>Altro dispositivo</translation>
    </message>
    <message>
        <source>Change the device</source>
        <translation>Modifica del dispositivo</translation>
    </message>
    <message>
        <source>Add a device</source>
        <translation>Aggiungi un dispositivo</translation>
    </message>
    <message>
        <source>Passwords are kept in the secret store of this desktop.</source>
        <translation>Le password sono conservate nel portachiavi di questo desktop.</translation>
    </message>
    <message>
        <source>This desktop has no secret store: passwords are asked for at each start.</source>
        <translation>Questo desktop non ha un portachiavi: le password vengono chieste a ogni avvio.</translation>
    </message>
    <message>
        <source>as it is</source>
        <translation>invariata</translation>
    </message>
    <message>
        <source>Keep</source>
        <translation>Salva</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annulla</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Lingua</translation>
    </message>
    <message>
        <source>Leave the full screen (F11)</source>
        <translation>Esci da schermo intero (F11)</translation>
    </message>
    <message>
        <source>Take the whole screen (F11)</source>
        <translation>Schermo intero (F11)</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Indietro</translation>
    </message>
</context>
<context>
    <name>StartPage</name>
    <message>
        <source>Which device is it? Whoever set it up knows its address, port and user.</source>
        <translation>Di quale dispositivo si tratta? Chi l&apos;ha installato conosce indirizzo, porta e utente.</translation>
    </message>
    <message>
        <source>Connect</source>
        <translation>Connetti</translation>
    </message>
    <message>
        <source>Try the demo</source>
        <translation>Prova la demo</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Impostazioni</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>The client library has no catalogue &quot;%1&quot;.</source>
        <translation>La libreria del client non ha il catalogo «%1».</translation>
    </message>
    <message>
        <source>There is no display to open a window on.</source>
        <translation>Non c&apos;è uno schermo su cui aprire una finestra.</translation>
    </message>
    <message>
        <source>The tour gave warnings: %1.</source>
        <translation>Il percorso ha prodotto avvisi: %1.</translation>
    </message>
</context>
</TS>
