<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>QObject</name>
    <message>
        <source>%1 is not an address of the form tcp://HOST[:PORT]</source>
        <translation>%1 ist keine Adresse der Form tcp://HOST[:PORT]</translation>
    </message>
    <message>
        <source>%1 has no usable port</source>
        <translation>%1 hat keinen verwendbaren Port</translation>
    </message>
    <message>
        <source>%1: the only option is ?baud=N</source>
        <translation>%1: die einzige Option ist ?baud=N</translation>
    </message>
    <message>
        <source>%1 names no serial device</source>
        <translation>%1 nennt keine serielle Schnittstelle</translation>
    </message>
    <message>
        <source>%1: the only option is ?speed=F</source>
        <translation>%1: die einzige Option ist ?speed=F</translation>
    </message>
    <message>
        <source>%1 is not an instrument address: use tcp://HOST[:PORT], serial:DEVICE[?baud=N] or sim:</source>
        <translation>%1 ist keine Geräteadresse: tcp://HOST[:PORT], serial:DEVICE[?baud=N] oder sim: verwenden</translation>
    </message>
    <message>
        <source>field &quot;%1&quot;: no such command word</source>
        <translation>Feld „%1“: kein solches Befehlswort</translation>
    </message>
    <message>
        <source>field &quot;%1&quot;: must be one non-empty line</source>
        <translation>Feld „%1“: muss genau eine nicht leere Zeile sein</translation>
    </message>
    <message>
        <source>field &quot;%1&quot;: must hold no placeholder</source>
        <translation>Feld „%1“: darf keinen Platzhalter enthalten</translation>
    </message>
    <message>
        <source>field &quot;%1&quot;: must hold the placeholders %2</source>
        <translation>Feld „%1“: muss die Platzhalter %2 enthalten</translation>
    </message>
    <message>
        <source>CSV files (*.csv);;All files (*)</source>
        <translation>CSV-Dateien (*.csv);;Alle Dateien (*)</translation>
    </message>
</context>
<context>
    <name>tarn::host::BenchController</name>
    <message>
        <source>no answer within %1 s</source>
        <translation>keine Antwort innerhalb von %1 s</translation>
    </message>
    <message>
        <source>Connecting to %1</source>
        <translation>Verbinde mit %1</translation>
    </message>
    <message>
        <source>(no identity)</source>
        <translation>(keine Kennung)</translation>
    </message>
    <message>
        <source>Connected to %1</source>
        <translation>Verbunden mit %1</translation>
    </message>
    <message>
        <source>The connection to %1 was lost: %2</source>
        <translation>Die Verbindung zu %1 ist abgebrochen: %2</translation>
    </message>
    <message>
        <source>Could not connect to %1: %2</source>
        <translation>Keine Verbindung zu %1 möglich: %2</translation>
    </message>
    <message>
        <source>disconnected by the user</source>
        <translation>vom Benutzer getrennt</translation>
    </message>
    <message>
        <source>Disconnected</source>
        <translation>Getrennt</translation>
    </message>
</context>
<context>
    <name>tarn::host::InstrumentLink</name>
    <message>
        <source>The instrument sent a reply longer than %1 bytes</source>
        <translation>Das Gerät hat eine Antwort mit mehr als %1 Bytes gesendet</translation>
    </message>
</context>
<context>
    <name>tarn::host::MainWindow</name>
    <message>
        <source>Command Traffic</source>
        <translation>Befehlsverkehr</translation>
    </message>
    <message>
        <source>Run</source>
        <translation>Ausführen</translation>
    </message>
    <message>
        <source>Bench Sequence Programmer</source>
        <translation>Sequenzprogrammierer für Labornetzteile</translation>
    </message>
    <message>
        <source>Not connected</source>
        <translation>Nicht verbunden</translation>
    </message>
    <message>
        <source>Connection</source>
        <translation>Verbindung</translation>
    </message>
    <message>
        <source>Instrument:</source>
        <translation>Gerät:</translation>
    </message>
    <message>
        <source>tcp://HOST[:PORT] for a LAN instrument, serial:DEVICE[?baud=N] for a serial one, sim: for the simulated supply</source>
        <translation>tcp://HOST[:PORT] für ein Gerät im Netzwerk, serial:DEVICE[?baud=N] für ein serielles, sim: für das simulierte Netzteil</translation>
    </message>
    <message>
        <source>Connect</source>
        <translation>Verbinden</translation>
    </message>
    <message>
        <source>Disconnect</source>
        <translation>Trennen</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>Save List...</source>
        <translation>Liste speichern...</translation>
    </message>
    <message>
        <source>Load List...</source>
        <translation>Liste laden...</translation>
    </message>
    <message>
        <source>Save Delayer...</source>
        <translation>Delayer speichern...</translation>
    </message>
    <message>
        <source>Load Delayer...</source>
        <translation>Delayer laden...</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>Command &amp;Traffic</source>
        <translation>Befehls&amp;verkehr</translation>
    </message>
    <message>
        <source>&amp;Run View</source>
        <translation>Ausf&amp;ührung</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;About</source>
        <translation>Ü&amp;ber</translation>
    </message>
    <message>
        <source>Cancel Upload</source>
        <translation>Übertragung abbrechen</translation>
    </message>
    <message>
        <source>End the upload now; the instrument keeps the steps it has taken</source>
        <translation>Die Übertragung jetzt beenden; das Gerät behält die Schritte, die es schon angenommen hat</translation>
    </message>
    <message>
        <source>%1 of %2 steps confirmed, %3 s left</source>
        <translation>%1 von %2 Schritten bestätigt, noch %3 s</translation>
    </message>
    <message>
        <source>%1 of %2 steps confirmed</source>
        <translation>%1 von %2 Schritten bestätigt</translation>
    </message>
    <message>
        <source>Disconnected</source>
        <translation>Getrennt</translation>
    </message>
    <message>
        <source>Connecting...</source>
        <translation>Verbinde...</translation>
    </message>
    <message>
        <source>Connected</source>
        <translation>Verbunden</translation>
    </message>
    <message>
        <source>About the Bench Sequence Programmer</source>
        <translation>Über den Sequenzprogrammierer für Labornetzteile</translation>
    </message>
    <message>
        <source>&lt;p&gt;&lt;b&gt;Bench Sequence Programmer&lt;/b&gt;&lt;/p&gt;&lt;p&gt;Programs the List and Delayer sequences of multi-channel bench supplies, uploads them with read-back verification and keeps them in CSV files.&lt;/p&gt;&lt;p&gt;Instrument: %1&lt;/p&gt;</source>
        <translation>&lt;p&gt;&lt;b&gt;Sequenzprogrammierer für Labornetzteile&lt;/b&gt;&lt;/p&gt;&lt;p&gt;Programmiert die List- und Delayer-Sequenzen mehrkanaliger Labornetzteile, überträgt sie mit Prüfung durch Rücklesen und bewahrt sie in CSV-Dateien auf.&lt;/p&gt;&lt;p&gt;Gerät: %1&lt;/p&gt;</translation>
    </message>
    <message>
        <source>not connected</source>
        <translation>nicht verbunden</translation>
    </message>
</context>
<context>
    <name>tarn::host::RunSession</name>
    <message>
        <source>Upload and verify a sequence on this channel first</source>
        <translation>Zuerst eine Sequenz auf diesen Kanal übertragen und prüfen lassen</translation>
    </message>
    <message>
        <source>Not connected to an instrument</source>
        <translation>Mit keinem Gerät verbunden</translation>
    </message>
    <message>
        <source>The instrument refused to run the sequence: %1</source>
        <translation>Das Gerät hat das Ausführen der Sequenz abgelehnt: %1</translation>
    </message>
    <message>
        <source>The instrument&apos;s position reply could not be read: %1</source>
        <translation>Die Positionsantwort des Geräts war nicht lesbar: %1</translation>
    </message>
    <message>
        <source>Stopped; the output is as the end state leaves it</source>
        <translation>Angehalten; der Ausgang steht, wie der Endzustand ihn lässt</translation>
    </message>
    <message>
        <source>The sequence ended after 1 cycle</source>
        <translation>Die Sequenz endete nach 1 Zyklus</translation>
    </message>
    <message>
        <source>The sequence ended after %1 cycles</source>
        <translation>Die Sequenz endete nach %1 Zyklen</translation>
    </message>
    <message>
        <source>The connection was lost during the run (%1); the trace so far is kept</source>
        <translation>Die Verbindung ist während der Ausführung abgebrochen (%1); die bisherige Aufzeichnung bleibt erhalten</translation>
    </message>
    <message>
        <source>The instrument stopped answering during the run (no reply to %1); the trace so far is kept</source>
        <translation>Das Gerät antwortet während der Ausführung nicht mehr (keine Antwort auf %1); die bisherige Aufzeichnung bleibt erhalten</translation>
    </message>
</context>
<context>
    <name>tarn::host::RunView</name>
    <message>
        <source>List</source>
        <translation>Liste</translation>
    </message>
    <message>
        <source>Delayer</source>
        <translation>Delayer</translation>
    </message>
    <message>
        <source>endless</source>
        <translation>endlos</translation>
    </message>
    <message>
        <source>1 cycle</source>
        <translation>1 Zyklus</translation>
    </message>
    <message>
        <source>%1 cycles</source>
        <translation>%1 Zyklen</translation>
    </message>
    <message>
        <source>%1 on %2: %3 steps, %4</source>
        <translation>%1 auf %2: %3 Schritte, %4</translation>
    </message>
    <message>
        <source>Run</source>
        <translation>Ausführen</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Anhalten</translation>
    </message>
    <message>
        <source>Export Trace...</source>
        <translation>Aufzeichnung exportieren...</translation>
    </message>
    <message>
        <source>Export Plot...</source>
        <translation>Diagramm exportieren...</translation>
    </message>
    <message>
        <source>The sequences uploaded and verified in this session</source>
        <translation>Die in dieser Sitzung übertragenen und geprüften Sequenzen</translation>
    </message>
    <message>
        <source>Switch the output on and play the sequence on the instrument</source>
        <translation>Den Ausgang einschalten und die Sequenz auf dem Gerät abspielen</translation>
    </message>
    <message>
        <source>Stop the sequence; the output goes to its end state</source>
        <translation>Die Sequenz anhalten; der Ausgang geht in ihren Endzustand</translation>
    </message>
    <message>
        <source>Save the measured trace as CSV</source>
        <translation>Die gemessene Aufzeichnung als CSV speichern</translation>
    </message>
    <message>
        <source>Save the plot as PNG</source>
        <translation>Das Diagramm als PNG speichern</translation>
    </message>
    <message>
        <source>Time (s)</source>
        <translation>Zeit (s)</translation>
    </message>
    <message>
        <source>Upload a sequence and let it be verified; it can then be run here. What the instrument held before was not verified by this program and is not offered.</source>
        <translation>Eine Sequenz übertragen und prüfen lassen; danach lässt sie sich hier ausführen. Was das Gerät vorher enthielt, hat dieses Programm nicht geprüft und bietet es nicht an.</translation>
    </message>
    <message>
        <source>Starting...</source>
        <translation>Starte...</translation>
    </message>
    <message>
        <source>Planned voltage</source>
        <translation>Geplante Spannung</translation>
    </message>
    <message>
        <source>Measured voltage</source>
        <translation>Gemessene Spannung</translation>
    </message>
    <message>
        <source>Planned current</source>
        <translation>Geplanter Strom</translation>
    </message>
    <message>
        <source>Measured current</source>
        <translation>Gemessener Strom</translation>
    </message>
    <message>
        <source>Voltage (V)</source>
        <translation>Spannung (V)</translation>
    </message>
    <message>
        <source>Current (A)</source>
        <translation>Strom (A)</translation>
    </message>
    <message>
        <source>Planned output</source>
        <translation>Geplanter Ausgang</translation>
    </message>
    <message>
        <source>Output state</source>
        <translation>Ausgangszustand</translation>
    </message>
    <message>
        <source>Output (1 = On)</source>
        <translation>Ausgang (1 = ein)</translation>
    </message>
    <message>
        <source>%1 s</source>
        <translation>%1 s</translation>
    </message>
    <message>
        <source>Not running · %1 steps, %2 per cycle, %3 in all</source>
        <translation>Läuft nicht · %1 Schritte, %2 je Zyklus, %3 insgesamt</translation>
    </message>
    <message>
        <source>Step %1 of %2 · cycle %3 of %4 · %5 s of %6</source>
        <translation>Schritt %1 von %2 · Zyklus %3 von %4 · %5 s von %6</translation>
    </message>
    <message>
        <source>Cannot write %1: %2</source>
        <translation>%1 kann nicht geschrieben werden: %2</translation>
    </message>
    <message>
        <source>Export Trace</source>
        <translation>Aufzeichnung exportieren</translation>
    </message>
    <message>
        <source>CSV files (*.csv)</source>
        <translation>CSV-Dateien (*.csv)</translation>
    </message>
    <message>
        <source>Export Plot</source>
        <translation>Diagramm exportieren</translation>
    </message>
    <message>
        <source>PNG images (*.png)</source>
        <translation>PNG-Bilder (*.png)</translation>
    </message>
    <message>
        <source>Cannot write %1</source>
        <translation>%1 kann nicht geschrieben werden</translation>
    </message>
</context>
<context>
    <name>tarn::host::SequenceFiles</name>
    <message>
        <source>Save List</source>
        <translation>Liste speichern</translation>
    </message>
    <message>
        <source>Could not write %1</source>
        <translation>%1 konnte nicht geschrieben werden</translation>
    </message>
    <message>
        <source>Save Delayer</source>
        <translation>Delayer speichern</translation>
    </message>
    <message>
        <source>Load List</source>
        <translation>Liste laden</translation>
    </message>
    <message>
        <source>%1 holds no usable list</source>
        <translation>%1 enthält keine verwendbare Liste</translation>
    </message>
    <message>
        <source>Load Delayer</source>
        <translation>Delayer laden</translation>
    </message>
    <message>
        <source>%1 holds no usable delayer sequence</source>
        <translation>%1 enthält keine verwendbare Delayer-Sequenz</translation>
    </message>
</context>
<context>
    <name>tarn::host::SerialLink</name>
    <message>
        <source>Cannot open %1: %2</source>
        <translation>%1 kann nicht geöffnet werden: %2</translation>
    </message>
</context>
<context>
    <name>tarn::host::TcpLink</name>
    <message>
        <source>The instrument closed the connection</source>
        <translation>Das Gerät hat die Verbindung geschlossen</translation>
    </message>
</context>
<context>
    <name>tarn::host::TrafficPanel</name>
    <message>
        <source>Copy All</source>
        <translation>Alles kopieren</translation>
    </message>
    <message>
        <source>Copy the whole log to the clipboard, for a bug report</source>
        <translation>Das ganze Protokoll in die Zwischenablage kopieren, für einen Fehlerbericht</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Leeren</translation>
    </message>
    <message>
        <source> … (%1 bytes)</source>
        <translation> … (%1 Bytes)</translation>
    </message>
</context>
<context>
    <name>tarn::host::UploadSession</name>
    <message>
        <source>%1 V, %2 A, %3 s</source>
        <translation>%1 V, %2 A, %3 s</translation>
    </message>
    <message>
        <source>%1 for %2 s</source>
        <translation>%1 für %2 s</translation>
    </message>
    <message>
        <source>On</source>
        <translation>Ein</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Aus</translation>
    </message>
    <message>
        <source>Not connected to an instrument: connect first, then upload</source>
        <translation>Mit keinem Gerät verbunden: erst verbinden, dann übertragen</translation>
    </message>
    <message>
        <source>This instrument has no channel %1</source>
        <translation>Dieses Gerät hat keinen Kanal %1</translation>
    </message>
    <message>
        <source>The instrument refused the upload&apos;s settings: %1</source>
        <translation>Das Gerät hat die Einstellungen der Übertragung abgelehnt: %1</translation>
    </message>
    <message>
        <source>The instrument&apos;s error reply could not be read: %1</source>
        <translation>Die Fehlerantwort des Geräts war nicht lesbar: %1</translation>
    </message>
    <message>
        <source>The instrument refused a step: %1</source>
        <translation>Das Gerät hat einen Schritt abgelehnt: %1</translation>
    </message>
    <message>
        <source>Step %1 was refused by the instrument: %2 (it holds %3 of %4 steps)</source>
        <translation>Schritt %1 wurde vom Gerät abgelehnt: %2 (es hält %3 von %4 Schritten)</translation>
    </message>
    <message>
        <source>The instrument&apos;s read-back could not be read</source>
        <translation>Das Rücklesen aus dem Gerät war nicht lesbar</translation>
    </message>
    <message>
        <source>Step %1 differs: sent %2, the instrument holds %3</source>
        <translation>Schritt %1 weicht ab: gesendet %2, das Gerät hält %3</translation>
    </message>
    <message>
        <source>The instrument holds %1 steps, %2 were sent</source>
        <translation>Das Gerät hält %1 Schritte, gesendet wurden %2</translation>
    </message>
    <message>
        <source>Verified %1 steps on %2</source>
        <translation>%1 Schritte auf %2 geprüft</translation>
    </message>
    <message>
        <source>%1: %2 of %3 steps were sent, %4 confirmed by the instrument</source>
        <translation>%1: %2 von %3 Schritten gesendet, %4 vom Gerät bestätigt</translation>
    </message>
    <message>
        <source>Upload cancelled</source>
        <translation>Übertragung abgebrochen</translation>
    </message>
    <message>
        <source>Upload cancelled: the instrument holds %1 of %2 steps</source>
        <translation>Übertragung abgebrochen: das Gerät hält %1 von %2 Schritten</translation>
    </message>
    <message>
        <source>The connection was lost during the upload (%1): %2 of %3 steps were confirmed</source>
        <translation>Die Verbindung ist während der Übertragung abgebrochen (%1): %2 von %3 Schritten wurden bestätigt</translation>
    </message>
    <message>
        <source>The instrument did not answer %1 within %2 ms: %3 of %4 steps were confirmed</source>
        <translation>Das Gerät hat %1 nicht innerhalb von %2 ms beantwortet: %3 von %4 Schritten wurden bestätigt</translation>
    </message>
</context>
</TS>
