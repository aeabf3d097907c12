<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>History</name>
    <message>
        <source>the history server %1 stopped answering: %2</source>
        <translation>der Historienserver %1 antwortet nicht mehr: %2</translation>
    </message>
    <message numerus="yes">
        <source>%n record(s) wait in %1 until the history server is back</source>
        <translation>
            <numerusform>%n Eintrag wartet in %1, bis der Historienserver wieder erreichbar ist</numerusform>
            <numerusform>%n Einträge warten in %1, bis der Historienserver wieder erreichbar ist</numerusform>
        </translation>
    </message>
    <message>
        <source>the history server has every waiting record now</source>
        <translation>der Historienserver hat jetzt alle wartenden Einträge</translation>
    </message>
</context>
<context>
    <name>HistoryStore</name>
    <message>
        <source>%1 is not a readable history (%2): it was set aside as %3 and a new history was started</source>
        <translation>%1 ist keine lesbare Historie (%2): sie wurde als %3 beiseitegelegt und eine neue Historie begonnen</translation>
    </message>
    <message>
        <source>%1 cannot be read: %2</source>
        <translation>%1 kann nicht gelesen werden: %2</translation>
    </message>
    <message>
        <source>it is not a database</source>
        <translation>sie ist keine Datenbank</translation>
    </message>
    <message>
        <source>%1 is held by another program for too long; nothing was changed</source>
        <translation>%1 wird zu lange von einem anderen Programm gehalten; nichts wurde geändert</translation>
    </message>
    <message>
        <source>%1 was written by a newer version of the bench tools; it is left as it is</source>
        <translation>%1 wurde von einer neueren Version der Werkzeuge geschrieben; sie bleibt, wie sie ist</translation>
    </message>
    <message>
        <source>it is another program&apos;s database</source>
        <translation>sie ist die Datenbank eines anderen Programms</translation>
    </message>
    <message>
        <source>it is damaged</source>
        <translation>sie ist beschädigt</translation>
    </message>
    <message>
        <source>this machine has no PostgreSQL driver for Qt (libqt5sql5-psql)</source>
        <translation>auf diesem Rechner fehlt der PostgreSQL-Treiber für Qt (libqt5sql5-psql)</translation>
    </message>
    <message>
        <source>the history server %1 cannot be reached: %2</source>
        <translation>der Historienserver %1 ist nicht erreichbar: %2</translation>
    </message>
    <message>
        <source>the history was written by a newer version of the bench tools</source>
        <translation>die Historie wurde von einer neueren Version der Werkzeuge geschrieben</translation>
    </message>
    <message>
        <source>The recording ended without the run&apos;s end: the program stopped abruptly</source>
        <translation>Die Aufzeichnung endete ohne das Ende der Ausführung: das Programm wurde abrupt beendet</translation>
    </message>
</context>
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
    <message>
        <source>List</source>
        <translation>Liste</translation>
    </message>
    <message>
        <source>Delayer</source>
        <translation>Delayer</translation>
    </message>
    <message>
        <source>line %1: %2</source>
        <translation>Zeile %1: %2</translation>
    </message>
    <message>
        <source>voltage</source>
        <translation>Spannung</translation>
    </message>
    <message>
        <source>current</source>
        <translation>Strom</translation>
    </message>
    <message>
        <source>time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>the %1 &quot;%2&quot; is not a number</source>
        <translation>%1 „%2“ ist keine Zahl</translation>
    </message>
    <message>
        <source>the state &quot;%1&quot; is not On or Off</source>
        <translation>der Zustand „%1“ ist weder On noch Off</translation>
    </message>
    <message>
        <source>the time &quot;%1&quot; is not a number</source>
        <translation>die Zeit „%1“ ist keine Zahl</translation>
    </message>
    <message>
        <source>the file is empty or cannot be read</source>
        <translation>die Datei ist leer oder nicht lesbar</translation>
    </message>
    <message>
        <source>this is a %1 file, not a %2 file</source>
        <translation>dies ist eine Datei vom Typ %1, nicht vom Typ %2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not the head of a %2 file (%3,10)</source>
        <translation>„%1“ ist nicht der Kopf einer Datei vom Typ %2 (%3,10)</translation>
    </message>
    <message>
        <source>line %1: the file ends before its head is complete</source>
        <translation>Zeile %1: die Datei endet, bevor ihr Kopf vollständig ist</translation>
    </message>
    <message>
        <source>the repeat count (Cycles) is missing</source>
        <translation>die Zyklenzahl (Cycles) fehlt</translation>
    </message>
    <message>
        <source>the repeat count &quot;%1&quot; is not Infinite or a number from 0 to %2</source>
        <translation>die Zyklenzahl „%1“ ist weder Infinite noch eine Zahl von 0 bis %2</translation>
    </message>
    <message>
        <source>the end state (End Status) is missing</source>
        <translation>der Endzustand (End Status) fehlt</translation>
    </message>
    <message>
        <source>the end state &quot;%1&quot; is not Output Off, Output On or Last</source>
        <translation>der Endzustand „%1“ ist weder Output Off noch Output On noch Last</translation>
    </message>
    <message>
        <source>the number of steps (Groups) is missing</source>
        <translation>die Schrittzahl (Groups) fehlt</translation>
    </message>
    <message>
        <source>Groups &quot;%1&quot; is not a number</source>
        <translation>Groups „%1“ ist keine Zahl</translation>
    </message>
    <message>
        <source>Groups %1 is above this instrument&apos;s %2</source>
        <translation>Groups %1 übersteigt die %2 Schritte, die dieses Gerät fasst</translation>
    </message>
    <message>
        <source>Groups %1 is below 1</source>
        <translation>Groups %1 ist kleiner als 1</translation>
    </message>
    <message>
        <source>more steps than this instrument&apos;s %1</source>
        <translation>mehr Schritte, als dieses Gerät fasst (%1)</translation>
    </message>
    <message>
        <source>%1 fields where %2 are expected</source>
        <translation>%1 statt der erwarteten %2 Felder</translation>
    </message>
    <message>
        <source>the file holds no steps</source>
        <translation>die Datei enthält keine Schritte</translation>
    </message>
    <message>
        <source>a List file cannot end in Output On</source>
        <translation>eine Listendatei darf nicht auf Output On enden</translation>
    </message>
    <message>
        <source>%1 cells where %2 are expected</source>
        <translation>%1 statt der erwarteten %2 Zellen</translation>
    </message>
    <message>
        <source>the clipboard holds no rows</source>
        <translation>die Zwischenablage enthält keine Zeilen</translation>
    </message>
    <message>
        <source>%1 %2 is not a finite number</source>
        <translation>%1 %2 ist keine endliche Zahl</translation>
    </message>
    <message>
        <source>%1 %2 %3 is above %4&apos;s %5 %3</source>
        <translation>%1 %2 %3 liegt über dem Höchstwert von %4 (%5 %3)</translation>
    </message>
    <message>
        <source>%1 %2 %3 is below %4&apos;s %5 %3</source>
        <translation>%1 %2 %3 liegt unter dem Mindestwert von %4 (%5 %3)</translation>
    </message>
    <message>
        <source>channel %1</source>
        <translation>Kanal %1</translation>
    </message>
    <message>
        <source>time %1 is not a finite number</source>
        <translation>Zeit %1 ist keine endliche Zahl</translation>
    </message>
    <message>
        <source>time %1 s is below the shortest step of %2 s</source>
        <translation>Zeit %1 s liegt unter der kürzesten Schrittdauer von %2 s</translation>
    </message>
    <message>
        <source>time %1 s is above the longest step of %2 s</source>
        <translation>Zeit %1 s liegt über der längsten Schrittdauer von %2 s</translation>
    </message>
    <message>
        <source>Change repeat count or end state</source>
        <translation>Zyklenzahl oder Endzustand ändern</translation>
    </message>
    <message>
        <source>Edit steps</source>
        <translation>Schritte bearbeiten</translation>
    </message>
    <message>
        <source>Unsaved sequence</source>
        <translation>Ungespeicherte Sequenz</translation>
    </message>
    <message>
        <source>Not uploaded: 1 step cannot be sent to %1; the first is step No. %2: %3</source>
        <translation>Nicht übertragen: Schritt Nr. %2 kann nicht an %1 gesendet werden: %3</translation>
    </message>
    <message>
        <source>Not uploaded: %1 steps cannot be sent to %2; the first is step No. %3: %4</source>
        <translation>Nicht übertragen: %1 Schritte können nicht an %2 gesendet werden; der erste ist Schritt Nr. %3: %4</translation>
    </message>
    <message numerus="yes">
        <source>Add %n steps</source>
        <translation>
            <numerusform>%n Schritt hinzufügen</numerusform>
            <numerusform>%n Schritte hinzufügen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Clear %n steps</source>
        <translation>
            <numerusform>Sequenz leeren (%n Schritt)</numerusform>
            <numerusform>Sequenz leeren (%n Schritte)</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Delete %n steps</source>
        <translation>
            <numerusform>%n Schritt löschen</numerusform>
            <numerusform>%n Schritte löschen</numerusform>
        </translation>
    </message>
    <message>
        <source>voltage %1 V is above %2&apos;s over-voltage protection level of %3 V</source>
        <translation>Spannung %1 V liegt über dem Überspannungsschutz von %2 (%3 V)</translation>
    </message>
    <message>
        <source>current %1 A is above %2&apos;s over-current protection level of %3 A</source>
        <translation>Strom %1 A liegt über dem Überstromschutz von %2 (%3 A)</translation>
    </message>
    <message>
        <source>%1: a socket resource is TCPIP[board]::HOST::PORT::SOCKET</source>
        <translation>%1: eine Socket-Ressource lautet TCPIP[board]::HOST::PORT::SOCKET</translation>
    </message>
    <message>
        <source>%1 names no host</source>
        <translation>%1 nennt keinen Host</translation>
    </message>
    <message>
        <source>%1: port &quot;%2&quot; is not a number from 1 to 65535</source>
        <translation>%1: Port „%2“ ist keine Zahl von 1 bis 65535</translation>
    </message>
    <message>
        <source>%1: a USB resource is USB[board]::VENDOR::PRODUCT::SERIAL[::INTERFACE]::INSTR</source>
        <translation>%1: eine USB-Ressource lautet USB[board]::VENDOR::PRODUCT::SERIAL[::INTERFACE]::INSTR</translation>
    </message>
    <message>
        <source>%1: vendor &quot;%2&quot; is not a 16-bit number such as 0x1234</source>
        <translation>%1: Hersteller „%2“ ist keine 16-Bit-Zahl wie 0x1234</translation>
    </message>
    <message>
        <source>%1: product &quot;%2&quot; is not a 16-bit number such as 0x5678</source>
        <translation>%1: Produkt „%2“ ist keine 16-Bit-Zahl wie 0x5678</translation>
    </message>
    <message>
        <source>%1 gives no serial number</source>
        <translation>%1 nennt keine Seriennummer</translation>
    </message>
    <message>
        <source>%1: interface &quot;%2&quot; is not a number</source>
        <translation>%1: Schnittstelle „%2“ ist keine Zahl</translation>
    </message>
    <message>
        <source>%1: a resource string ends in ::INSTR or ::SOCKET</source>
        <translation>%1: eine Ressourcenbezeichnung endet auf ::INSTR oder ::SOCKET</translation>
    </message>
    <message>
        <source>%1: a serial resource is ASRL/DEVICE::INSTR</source>
        <translation>%1: eine serielle Ressource lautet ASRL/DEVICE::INSTR</translation>
    </message>
    <message>
        <source>%1: name the serial port by its device file, as in ASRL/dev/ttyUSB0::INSTR</source>
        <translation>%1: nennen Sie die serielle Schnittstelle über ihre Gerätedatei, etwa ASRL/dev/ttyUSB0::INSTR</translation>
    </message>
    <message>
        <source>%1: a USB resource ends in ::INSTR</source>
        <translation>%1: eine USB-Ressource endet auf ::INSTR</translation>
    </message>
    <message>
        <source>%1: &quot;%2&quot; is not a kind of resource this host reaches; it reaches TCPIP, USB and ASRL resources</source>
        <translation>%1: „%2“ ist keine Ressourcenart, die dieses Programm erreicht; es erreicht TCPIP-, USB- und ASRL-Ressourcen</translation>
    </message>
    <message>
        <source>%1: give the device file, as in usbtmc:/dev/usbtmc0</source>
        <translation>%1: geben Sie die Gerätedatei an, etwa usbtmc:/dev/usbtmc0</translation>
    </message>
    <message>
        <source>%1 is not an address of the form vxi11://HOST[:PORT][/DEVICE]</source>
        <translation>%1 ist keine Adresse der Form vxi11://HOST[:PORT][/DEVICE]</translation>
    </message>
    <message>
        <source>%1: device &quot;%2&quot; is not a VXI-11 device name such as inst0</source>
        <translation>%1: das Gerät „%2“ ist kein VXI-11-Gerätename wie inst0</translation>
    </message>
    <message>
        <source>%1: a VXI-11 resource is TCPIP[board]::HOST[::DEVICE]::INSTR</source>
        <translation>%1: eine VXI-11-Ressource lautet TCPIP[board]::HOST[::DEVICE]::INSTR</translation>
    </message>
    <message>
        <source>%1 is not an instrument address: use tcp://HOST[:PORT], vxi11://HOST[:PORT][/DEVICE], serial:DEVICE[?baud=N], usbtmc:DEVICE, sim:, or a resource string such as TCPIP0::HOST::5025::SOCKET, TCPIP0::HOST::inst0::INSTR, USB0::0x1234::0x5678::SERIAL::INSTR or ASRL/dev/ttyUSB0::INSTR</source>
        <translation>%1 ist keine Geräteadresse: verwenden Sie tcp://HOST[:PORT], vxi11://HOST[:PORT][/DEVICE], serial:DEVICE[?baud=N], usbtmc:DEVICE, sim: oder eine Ressourcenbezeichnung wie TCPIP0::HOST::5025::SOCKET, TCPIP0::HOST::inst0::INSTR, USB0::0x1234::0x5678::SERIAL::INSTR oder ASRL/dev/ttyUSB0::INSTR</translation>
    </message>
</context>
<context>
    <name>TraceOverlay</name>
    <message>
        <source>Plan of %1</source>
        <translation>Plan von %1</translation>
    </message>
    <message>
        <source>Planned current of %1</source>
        <translation>Geplanter Strom von %1</translation>
    </message>
    <message>
        <source>Voltage of %1</source>
        <translation>Spannung von %1</translation>
    </message>
    <message>
        <source>Output of %1</source>
        <translation>Ausgang von %1</translation>
    </message>
    <message>
        <source>Current of %1</source>
        <translation>Strom von %1</translation>
    </message>
    <message>
        <source>Voltage (V)</source>
        <translation>Spannung (V)</translation>
    </message>
    <message>
        <source>Output (1 = On)</source>
        <translation>Ausgang (1 = ein)</translation>
    </message>
    <message>
        <source>Current (A)</source>
        <translation>Strom (A)</translation>
    </message>
</context>
<context>
    <name>tarn::history::HistoryRecorder</name>
    <message>
        <source>The upload could not be recorded in the history: %1</source>
        <translation>Die Übertragung konnte nicht in der Historie festgehalten werden: %1</translation>
    </message>
    <message>
        <source>The run could not be recorded in the history: %1</source>
        <translation>Die Ausführung konnte nicht in der Historie festgehalten werden: %1</translation>
    </message>
    <message>
        <source>The run&apos;s samples could not be written to the history: %1</source>
        <translation>Die Messwerte der Ausführung konnten nicht in die Historie geschrieben werden: %1</translation>
    </message>
    <message>
        <source>The end of the run could not be recorded in the history: %1</source>
        <translation>Das Ende der Ausführung konnte nicht in der Historie festgehalten werden: %1</translation>
    </message>
</context>
<context>
    <name>tarn::host::BenchController</name>
    <message>
        <source>%1 (%2 of %3 steps sent; the instrument holds no more)</source>
        <translation>%1 (%2 von %3 Schritten gesendet; mehr fasst das Gerät nicht)</translation>
    </message>
</context>
<context>
    <name>tarn::host::CloseGuard</name>
    <message>
        <source>The %1 sequence has changed since it was last saved or loaded. Save it before closing?</source>
        <translation>Die Sequenz „%1“ wurde seit dem letzten Speichern oder Laden geändert. Vor dem Schließen speichern?</translation>
    </message>
    <message>
        <source>The List and Delayer sequences have changed since they were last saved or loaded. Save them before closing?</source>
        <translation>Die Sequenzen „Liste“ und „Delayer“ wurden seit dem letzten Speichern oder Laden geändert. Vor dem Schließen speichern?</translation>
    </message>
</context>
<context>
    <name>tarn::host::HistoryDock</name>
    <message>
        <source>History</source>
        <translation>Verlauf</translation>
    </message>
    <message>
        <source>Nothing is recorded: %1</source>
        <translation>Es wird nichts aufgezeichnet: %1</translation>
    </message>
    <message>
        <source>The sequence of %1 is in the %2 tab; Undo puts back what was there</source>
        <translation>Die Sequenz von %1 steht im Reiter %2; Rückgängig stellt den vorherigen Inhalt wieder her</translation>
    </message>
    <message>
        <source>List</source>
        <translation>Liste</translation>
    </message>
    <message>
        <source>Delayer</source>
        <translation>Delayer</translation>
    </message>
    <message>
        <source>A run is going on; plot recorded runs once it has ended</source>
        <translation>Eine Ausführung läuft; aufgezeichnete Läufe erst nach ihrem Ende zeichnen</translation>
    </message>
</context>
<context>
    <name>tarn::host::HistoryModel</name>
    <message>
        <source>Run</source>
        <translation>Ausführen</translation>
    </message>
    <message>
        <source>Upload</source>
        <translation>Übertragung</translation>
    </message>
    <message>
        <source>List</source>
        <translation>Liste</translation>
    </message>
    <message>
        <source>Delayer</source>
        <translation>Delayer</translation>
    </message>
    <message>
        <source>Record</source>
        <translation>Eintrag</translation>
    </message>
    <message>
        <source>Started</source>
        <translation>Begonnen</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>Channel</source>
        <translation>Kanal</translation>
    </message>
    <message>
        <source>Steps</source>
        <translation>Schritte</translation>
    </message>
    <message>
        <source>Outcome</source>
        <translation>Ergebnis</translation>
    </message>
    <message>
        <source>Station</source>
        <translation>Station</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>Meldung</translation>
    </message>
</context>
<context>
    <name>tarn::host::HistoryPanel</name>
    <message>
        <source>Open in Editor</source>
        <translation>Im Editor öffnen</translation>
    </message>
    <message>
        <source>Plot</source>
        <translation>Zeichnen</translation>
    </message>
    <message>
        <source>Export...</source>
        <translation>Exportieren...</translation>
    </message>
    <message>
        <source>Instrument</source>
        <translation>Gerät</translation>
    </message>
    <message>
        <source>Any channel</source>
        <translation>Jeder Kanal</translation>
    </message>
    <message>
        <source>Any outcome</source>
        <translation>Jedes Ergebnis</translation>
    </message>
    <message>
        <source>Any date</source>
        <translation>Jedes Datum</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Put the record&apos;s sequence into its tab, as one change to undo</source>
        <translation>Die Sequenz des Eintrags in ihren Reiter setzen, als eine rückgängig zu machende Änderung</translation>
    </message>
    <message>
        <source>Draw a run over its plan, or two runs over each other, in the run view</source>
        <translation>Einen Lauf über seinem Plan oder zwei Läufe übereinander in der Ausführungsansicht zeichnen</translation>
    </message>
    <message>
        <source>Save the sequence file, and a run&apos;s trace beside it</source>
        <translation>Die Sequenzdatei speichern und daneben die Messkurve eines Laufs</translation>
    </message>
    <message>
        <source>The newest %1 records that match</source>
        <translation>Die neuesten %1 passenden Einträge</translation>
    </message>
    <message>
        <source>Select one record to export</source>
        <translation>Einen Eintrag zum Exportieren auswählen</translation>
    </message>
    <message>
        <source>Cannot write %1</source>
        <translation>%1 kann nicht geschrieben werden</translation>
    </message>
    <message>
        <source>Export %1</source>
        <translation>%1 exportieren</translation>
    </message>
    <message>
        <source>CSV files (*.csv)</source>
        <translation>CSV-Dateien (*.csv)</translation>
    </message>
    <message>
        <source>Wrote %1 and %2</source>
        <translation>%1 und %2 geschrieben</translation>
    </message>
    <message>
        <source>Wrote %1</source>
        <translation>%1 geschrieben</translation>
    </message>
</context>
<context>
    <name>tarn::host::InstrumentConnection</name>
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
        <source>Connected to %1; it did not tell its limits, so those of the instrument description apply</source>
        <translation>Verbunden mit %1; das Gerät nennt seine Grenzen nicht, daher gelten die der Gerätebeschreibung</translation>
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
    <name>tarn::host::InstrumentStatusView</name>
    <message>
        <source>Clear Trip</source>
        <translation>Auslösung zurücksetzen</translation>
    </message>
    <message>
        <source>%1 over-voltage and over-current</source>
        <translation>%1 Überspannung und Überstrom</translation>
    </message>
    <message>
        <source>%1 over-voltage</source>
        <translation>%1 Überspannung</translation>
    </message>
    <message>
        <source>%1 over-current</source>
        <translation>%1 Überstrom</translation>
    </message>
    <message>
        <source>Protection tripped: %1</source>
        <translation>Schutz ausgelöst: %1</translation>
    </message>
    <message numerus="yes">
        <source>%n errors waiting</source>
        <translation>
            <numerusform>%n Fehler wartet</numerusform>
            <numerusform>%n Fehler warten</numerusform>
        </translation>
    </message>
    <message>
        <source>No trips, no errors</source>
        <translation>Kein Schutz ausgelöst, keine Fehler</translation>
    </message>
    <message>
        <source>Clears the tripped protection of %1; the output stays off until it is switched on again</source>
        <translation>Setzt den ausgelösten Schutz von %1 zurück; der Ausgang bleibt aus, bis er wieder eingeschaltet wird</translation>
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
        <source>About the Bench Sequence Programmer</source>
        <translation>Über den Sequenzprogrammierer für Labornetzteile</translation>
    </message>
    <message>
        <source>not connected</source>
        <translation>nicht verbunden</translation>
    </message>
    <message>
        <source>Untitled List</source>
        <translation>Unbenannte Liste</translation>
    </message>
    <message>
        <source>Untitled Delayer</source>
        <translation>Unbenannter Delayer</translation>
    </message>
    <message>
        <source>%1[*] — Bench Sequence Programmer</source>
        <translation>%1[*] — Sequenzprogrammierer für Labornetzteile</translation>
    </message>
    <message>
        <source>Show the Run View After Each &amp;Verified Upload</source>
        <translation>Ausführung nach jeder &amp;geprüften Übertragung zeigen</translation>
    </message>
    <message>
        <source>&amp;Instrument</source>
        <translation>&amp;Gerät</translation>
    </message>
    <message>
        <source>&amp;Connect</source>
        <translation>&amp;Verbinden</translation>
    </message>
    <message>
        <source>Connect to the instrument at the address in the bar</source>
        <translation>Mit dem Gerät unter der Adresse in der Leiste verbinden</translation>
    </message>
    <message>
        <source>&amp;Disconnect</source>
        <translation>&amp;Trennen</translation>
    </message>
    <message>
        <source>&amp;Upload the Tab&apos;s Sequence</source>
        <translation>Sequenz des Reiters &amp;übertragen</translation>
    </message>
    <message>
        <source>&amp;Run</source>
        <translation>&amp;Ausführen</translation>
    </message>
    <message>
        <source>&amp;Stop</source>
        <translation>&amp;Anhalten</translation>
    </message>
    <message>
        <source>Connected to %1</source>
        <translation>Verbunden mit %1</translation>
    </message>
    <message>
        <source>&lt;p&gt;&lt;b&gt;Bench Sequence Programmer %1&lt;/b&gt;&lt;/p&gt;&lt;p&gt;Programs the List and Delayer sequences of multi-channel bench supplies, uploads them with read-back verification and keeps them in CSV files.&lt;/p&gt;&lt;p&gt;Built with Qt %2 (running on Qt %3) and QCustomPlot %4.&lt;/p&gt;&lt;p&gt;Instrument: %5&lt;/p&gt;</source>
        <translation>&lt;p&gt;&lt;b&gt;Sequenzprogrammierer für Labornetzteile %1&lt;/b&gt;&lt;/p&gt;&lt;p&gt;Programmiert die Listen- und Delayer-Sequenzen mehrkanaliger Labornetzteile, überträgt sie mit Prüfung durch Rücklesen und speichert sie in CSV-Dateien.&lt;/p&gt;&lt;p&gt;Erstellt mit Qt %2 (läuft mit Qt %3) und QCustomPlot %4.&lt;/p&gt;&lt;p&gt;Gerät: %5&lt;/p&gt;</translation>
    </message>
    <message>
        <source>&amp;History</source>
        <translation>&amp;Verlauf</translation>
    </message>
    <message>
        <source>tcp://HOST[:PORT] or TCPIP0::HOST::PORT::SOCKET for a LAN instrument&apos;s raw socket, vxi11://HOST[:PORT][/DEVICE] or TCPIP0::HOST[::DEVICE]::INSTR for a VXI-11 one, serial:DEVICE[?baud=N] or ASRL/DEVICE::INSTR for a serial one, usbtmc:DEVICE or USB0::VENDOR::PRODUCT::SERIAL::INSTR for a USB one, sim: for the simulated supply</source>
        <translation>tcp://HOST[:PORT] oder TCPIP0::HOST::PORT::SOCKET für den Roh-Socket eines LAN-Geräts, vxi11://HOST[:PORT][/DEVICE] oder TCPIP0::HOST[::DEVICE]::INSTR für ein VXI-11-Gerät, serial:DEVICE[?baud=N] oder ASRL/DEVICE::INSTR für ein serielles, usbtmc:DEVICE oder USB0::VENDOR::PRODUCT::SERIAL::INSTR für ein USB-Gerät, sim: für das simulierte Netzgerät</translation>
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
        <source>Switch the output on and play the sequence on the instrument</source>
        <translation>Den Ausgang einschalten und die Sequenz auf dem Gerät abspielen</translation>
    </message>
    <message>
        <source>Stop the sequence; the output goes to its end state</source>
        <translation>Die Sequenz anhalten; der Ausgang geht in ihren Endzustand</translation>
    </message>
    <message>
        <source>Time (s)</source>
        <translation>Zeit (s)</translation>
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
        <source>%1 s</source>
        <translation>%1 s</translation>
    </message>
    <message>
        <source>Not running · %1 steps, %2 per cycle, %3 in all</source>
        <translation>Läuft nicht · %1 Schritte, %2 je Zyklus, %3 insgesamt</translation>
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
    <message>
        <source>The sequences the instrument holds as this program uploaded and verified them since it connected</source>
        <translation>Die Sequenzen, die das Gerät hält, wie dieses Programm sie seit dem Verbinden übertragen und geprüft hat</translation>
    </message>
    <message>
        <source>Save the measured samples of the run shown as CSV</source>
        <translation>Die Messwerte der gezeigten Ausführung als CSV speichern</translation>
    </message>
    <message>
        <source>Save the plot as a PNG image, titled with the instrument, channel, sequence and date</source>
        <translation>Das Diagramm als PNG-Bild speichern, betitelt mit Gerät, Kanal, Sequenz und Datum</translation>
    </message>
    <message>
        <source>Upload a sequence and let it be verified; it can then be run here.</source>
        <translation>Eine Sequenz übertragen und prüfen lassen; dann lässt sie sich hier ausführen.</translation>
    </message>
    <message>
        <source>The instrument holds nothing this program verified since it connected; the last run stays here to export.</source>
        <translation>Das Gerät hält nichts, was dieses Programm seit dem Verbinden geprüft hat; die letzte Ausführung bleibt hier zum Exportieren.</translation>
    </message>
    <message>
        <source>Output</source>
        <translation>Ausgang</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Aus</translation>
    </message>
    <message>
        <source>On</source>
        <translation>Ein</translation>
    </message>
    <message>
        <source>Step No. %1 of %2 steps · cycle %3 of %4 · %5 s of %6</source>
        <translation>Schritt Nr. %1 von %2 Schritten · Zyklus %3 von %4 · %5 s von %6</translation>
    </message>
    <message>
        <source>Saved %1 samples to %2</source>
        <translation>%1 Messwerte in %2 gespeichert</translation>
    </message>
    <message>
        <source>Saved the plot to %1</source>
        <translation>Diagramm in %1 gespeichert</translation>
    </message>
</context>
<context>
    <name>tarn::host::SequenceClipboard</name>
    <message>
        <source>&amp;Delete Rows</source>
        <translation>Zeilen &amp;löschen</translation>
    </message>
    <message>
        <source>&amp;Copy Rows</source>
        <translation>Zeilen &amp;kopieren</translation>
    </message>
    <message>
        <source>&amp;Paste Rows</source>
        <translation>Zeilen &amp;einfügen</translation>
    </message>
    <message numerus="yes">
        <source>Copied %n steps</source>
        <translation>
            <numerusform>%n Schritt kopiert</numerusform>
            <numerusform>%n Schritte kopiert</numerusform>
        </translation>
    </message>
    <message>
        <source>Not pasted: %1</source>
        <translation>Nicht eingefügt: %1</translation>
    </message>
    <message numerus="yes">
        <source>Pasted %n steps</source>
        <translation>
            <numerusform>%n Schritt eingefügt</numerusform>
            <numerusform>%n Schritte eingefügt</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>tarn::host::SequenceEditor</name>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message>
        <source>&amp;Save Sequence...</source>
        <translation>Sequenz &amp;speichern...</translation>
    </message>
    <message>
        <source>Save the sequence of the tab shown to a CSV file</source>
        <translation>Die Sequenz des angezeigten Reiters in einer CSV-Datei speichern</translation>
    </message>
    <message>
        <source>&amp;Open Sequence...</source>
        <translation>Sequenz ö&amp;ffnen...</translation>
    </message>
    <message>
        <source>Load a CSV file into the tab shown</source>
        <translation>Eine CSV-Datei in den angezeigten Reiter laden</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;Undo %1</source>
        <translation>&amp;Rückgängig: %1</translation>
    </message>
    <message>
        <source>&amp;Redo %1</source>
        <translation>&amp;Wiederholen: %1</translation>
    </message>
</context>
<context>
    <name>tarn::host::SequenceFiles</name>
    <message>
        <source>%1 was not opened: %2</source>
        <translation>%1 wurde nicht geöffnet: %2</translation>
    </message>
    <message>
        <source>line 1: it is not a List or Delayer file</source>
        <translation>Zeile 1: es ist weder eine Listen- noch eine Delayer-Datei</translation>
    </message>
    <message>
        <source>Open Sequence</source>
        <translation>Sequenz öffnen</translation>
    </message>
    <message>
        <source>Load %1</source>
        <translation>%1 laden</translation>
    </message>
    <message>
        <source>%1 was not loaded: %2</source>
        <translation>%1 wurde nicht geladen: %2</translation>
    </message>
    <message>
        <source>the folder %1 does not exist</source>
        <translation>der Ordner %1 existiert nicht</translation>
    </message>
    <message>
        <source>it is a folder</source>
        <translation>es ist ein Ordner</translation>
    </message>
    <message>
        <source>the file could not be written completely</source>
        <translation>die Datei konnte nicht vollständig geschrieben werden</translation>
    </message>
    <message>
        <source>Save %1</source>
        <translation>%1 speichern</translation>
    </message>
    <message>
        <source>The sequence is empty.</source>
        <translation>Die Sequenz ist leer.</translation>
    </message>
    <message>
        <source>It ends in Output On, and a List file with that end state is refused.</source>
        <translation>Sie endet mit „Ausgang ein“, und eine Listendatei mit diesem Endzustand wird abgelehnt.</translation>
    </message>
    <message>
        <source>It has %1 steps, more than this instrument&apos;s %2.</source>
        <translation>Sie hat %1 Schritte, mehr als dieses Gerät fasst (%2).</translation>
    </message>
    <message>
        <source>This file would not load back:
%1

Save anyway?</source>
        <translation>Diese Datei ließe sich nicht wieder laden:
%1

Trotzdem speichern?</translation>
    </message>
    <message>
        <source>Could not write %1: %2</source>
        <translation>%1 konnte nicht geschrieben werden: %2</translation>
    </message>
    <message numerus="yes">
        <source>%1 was not loaded: %2.

Load its %n steps with the end state Output Off?</source>
        <translation>
            <numerusform>%1 wurde nicht geladen: %2.

Den %n Schritt der Datei mit dem Endzustand „Ausgang aus“ laden?</numerusform>
            <numerusform>%1 wurde nicht geladen: %2.

Die %n Schritte der Datei mit dem Endzustand „Ausgang aus“ laden?</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Saved %n steps to %1</source>
        <translation>
            <numerusform>%n Schritt in %1 gespeichert</numerusform>
            <numerusform>%n Schritte in %1 gespeichert</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>tarn::host::SequenceHints</name>
    <message>
        <source>How long the sequence runs on the instrument, repeats included</source>
        <translation>Wie lange die Sequenz auf dem Gerät läuft, Wiederholungen eingeschlossen</translation>
    </message>
    <message>
        <source>The channel the List sequence is uploaded to</source>
        <translation>Der Kanal, auf den die Listensequenz übertragen wird</translation>
    </message>
    <message>
        <source>The channel the Delayer sequence is uploaded to</source>
        <translation>Der Kanal, auf den die Delayer-Sequenz übertragen wird</translation>
    </message>
    <message>
        <source>How often the instrument runs the sequence; Infinite repeats it until stopped</source>
        <translation>Wie oft das Gerät die Sequenz ausführt; „Endlos“ wiederholt sie, bis sie angehalten wird</translation>
    </message>
    <message>
        <source>The output&apos;s state after the last step</source>
        <translation>Der Zustand des Ausgangs nach dem letzten Schritt</translation>
    </message>
    <message>
        <source>The List sequence: double-click a cell to edit it; right-click to add or remove steps; Delete removes the selected rows; Ctrl+C and Ctrl+V copy and paste rows</source>
        <translation>Die Listensequenz: Doppelklick auf eine Zelle bearbeitet sie; Rechtsklick fügt Schritte hinzu oder entfernt sie; Entf löscht die ausgewählten Zeilen; Strg+C und Strg+V kopieren Zeilen und fügen sie ein</translation>
    </message>
    <message>
        <source>The Delayer sequence: double-click a cell to edit it; right-click to add or remove steps; Delete removes the selected rows; Ctrl+C and Ctrl+V copy and paste rows</source>
        <translation>Die Delayer-Sequenz: Doppelklick auf eine Zelle bearbeitet sie; Rechtsklick fügt Schritte hinzu oder entfernt sie; Entf löscht die ausgewählten Zeilen; Strg+C und Strg+V kopieren Zeilen und fügen sie ein</translation>
    </message>
    <message>
        <source>The steps the template makes</source>
        <translation>Die Schritte, die die Vorlage erzeugt</translation>
    </message>
    <message>
        <source>The waveform the template makes</source>
        <translation>Die Kurvenform, die die Vorlage erzeugt</translation>
    </message>
    <message>
        <source>Whether the waveform shapes voltage or current</source>
        <translation>Ob die Kurvenform auf die Spannung oder den Strom wirkt</translation>
    </message>
    <message>
        <source>How the step times develop</source>
        <translation>Wie sich die Schrittdauern entwickeln</translation>
    </message>
    <message>
        <source>Whether the pattern starts On or Off</source>
        <translation>Ob das Muster mit Ein oder Aus beginnt</translation>
    </message>
    <message>
        <source>Put this template back to its defaults</source>
        <translation>Diese Vorlage auf ihre Vorgabewerte zurücksetzen</translation>
    </message>
    <message>
        <source>Put every List template back to its defaults</source>
        <translation>Alle Listenvorlagen auf ihre Vorgabewerte zurücksetzen</translation>
    </message>
    <message>
        <source>Add the template&apos;s steps after the last step</source>
        <translation>Die Schritte der Vorlage hinter dem letzten Schritt anhängen</translation>
    </message>
    <message>
        <source>Add the template&apos;s steps before the selected step</source>
        <translation>Die Schritte der Vorlage vor dem ausgewählten Schritt einfügen</translation>
    </message>
    <message>
        <source>Save the List sequence to a CSV file (Ctrl+S)</source>
        <translation>Die Listensequenz in einer CSV-Datei speichern (Strg+S)</translation>
    </message>
    <message>
        <source>Save the Delayer sequence to a CSV file (Ctrl+S)</source>
        <translation>Die Delayer-Sequenz in einer CSV-Datei speichern (Strg+S)</translation>
    </message>
    <message>
        <source>Load a List sequence from a CSV file (Ctrl+O)</source>
        <translation>Eine Listensequenz aus einer CSV-Datei laden (Strg+O)</translation>
    </message>
    <message>
        <source>Load a Delayer sequence from a CSV file (Ctrl+O)</source>
        <translation>Eine Delayer-Sequenz aus einer CSV-Datei laden (Strg+O)</translation>
    </message>
    <message>
        <source>Check the List sequence and send it to the instrument</source>
        <translation>Die Listensequenz prüfen und an das Gerät übertragen</translation>
    </message>
    <message>
        <source>Check the Delayer sequence and send it to the instrument</source>
        <translation>Die Delayer-Sequenz prüfen und an das Gerät übertragen</translation>
    </message>
    <message>
        <source>Total %1 s, repeated endlessly</source>
        <translation>Gesamt %1 s, endlos wiederholt</translation>
    </message>
    <message>
        <source>Total %1 s</source>
        <translation>Gesamt %1 s</translation>
    </message>
    <message>
        <source>Total %1 s × %2 = %3 s</source>
        <translation>Gesamt %1 s × %2 = %3 s</translation>
    </message>
    <message>
        <source>Red: %1 steps are more than the %2 this instrument holds. An upload sends only the first %2, after asking, and a file of this sequence would not load back.</source>
        <translation>Rot: %1 Schritte sind mehr, als dieses Gerät fasst (%2). Eine Übertragung sendet nach Rückfrage nur die ersten %2, und eine Datei dieser Sequenz ließe sich nicht wieder laden.</translation>
    </message>
    <message>
        <source>Steps in the sequence; red above the %1 this instrument holds</source>
        <translation>Schritte in der Sequenz; rot, wenn es mehr sind, als dieses Gerät fasst (%1)</translation>
    </message>
</context>
<context>
    <name>tarn::host::SequenceHistory</name>
    <message>
        <source>Clear</source>
        <translation>Leeren</translation>
    </message>
    <message>
        <source>Erase all %1 steps of the %2 sequence?</source>
        <translation>Alle %1 Schritte der Sequenz „%2“ löschen?</translation>
    </message>
    <message>
        <source>List</source>
        <translation>Liste</translation>
    </message>
    <message>
        <source>Delayer</source>
        <translation>Delayer</translation>
    </message>
</context>
<context>
    <name>tarn::host::SequenceReader</name>
    <message>
        <source>the file does not exist</source>
        <translation>die Datei existiert nicht</translation>
    </message>
    <message>
        <source>the file holds %1 bytes, more than a sequence of %2 steps can take (%3 bytes)</source>
        <translation>die Datei ist %1 Bytes groß, mehr als eine Sequenz mit %2 Schritten belegen kann (%3 Bytes)</translation>
    </message>
</context>
<context>
    <name>tarn::host::SerialLink</name>
    <message>
        <source>Cannot open %1: %2</source>
        <translation>%1 kann nicht geöffnet werden: %2</translation>
    </message>
    <message>
        <source>The serial line %1 was dropped: was the adapter unplugged or the instrument switched off?</source>
        <translation>Die serielle Leitung %1 ist abgebrochen: wurde der Adapter abgezogen oder das Gerät ausgeschaltet?</translation>
    </message>
</context>
<context>
    <name>tarn::host::Step</name>
    <message>
        <source>Not uploaded: still connecting; upload once connected</source>
        <translation>Nicht übertragen: die Verbindung wird noch aufgebaut; nach dem Verbinden übertragen</translation>
    </message>
    <message>
        <source>Upload</source>
        <translation>Übertragung</translation>
    </message>
    <message>
        <source>The sequence has %1 steps; this instrument holds %2.

Upload only the first %2 steps?</source>
        <translation>Die Sequenz hat %1 Schritte; dieses Gerät fasst %2.

Nur die ersten %2 Schritte übertragen?</translation>
    </message>
    <message>
        <source>Not uploaded: the sequence is longer than the instrument holds</source>
        <translation>Nicht übertragen: die Sequenz ist länger, als das Gerät fasst</translation>
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
        <source>The instrument&apos;s read-back could not be read</source>
        <translation>Das Rücklesen aus dem Gerät war nicht lesbar</translation>
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
    <message>
        <source>Step No. %1 was refused (the instrument holds %2 of %3 steps); the instrument says: “%4”</source>
        <translation>Schritt Nr. %1 wurde abgelehnt (das Gerät hält %2 von %3 Schritten); das Gerät meldet: „%4“</translation>
    </message>
    <message>
        <source>Step No. %1 differs: sent %2, the instrument holds %3</source>
        <translation>Schritt Nr. %1 weicht ab: gesendet %2, das Gerät hält %3</translation>
    </message>
    <message>
        <source>Steps %1 to %2 were refused by the instrument: %3 (it holds %4 of %5 steps)</source>
        <translation>Die Schritte %1 bis %2 wurden vom Gerät abgelehnt: %3 (es hält %4 von %5 Schritten)</translation>
    </message>
</context>
<context>
    <name>tarn::host::UsbtmcLink</name>
    <message>
        <source>no such USB instrument is attached, or the usbtmc driver has not taken it on</source>
        <translation>kein solches USB-Gerät ist angeschlossen, oder der usbtmc-Treiber hat es nicht übernommen</translation>
    </message>
    <message>
        <source>Cannot open %1: permission denied (the README&apos;s &quot;Connecting an instrument&quot; tells which group may use it)</source>
        <translation>%1 kann nicht geöffnet werden: keine Berechtigung (der Abschnitt „Connecting an instrument“ der README nennt die Gruppe, die es nutzen darf)</translation>
    </message>
    <message>
        <source>Cannot open %1: %2</source>
        <translation>%1 kann nicht geöffnet werden: %2</translation>
    </message>
    <message>
        <source>The USB instrument %1 is gone: it was unplugged or switched off</source>
        <translation>Das USB-Gerät %1 ist verschwunden: es wurde abgezogen oder ausgeschaltet</translation>
    </message>
    <message>
        <source>The USB instrument %1 failed: %2</source>
        <translation>Das USB-Gerät %1 ist ausgefallen: %2</translation>
    </message>
</context>
<context>
    <name>tarn::host::Vxi11Link</name>
    <message>
        <source>syntax error</source>
        <translation>Syntaxfehler</translation>
    </message>
    <message>
        <source>device not accessible</source>
        <translation>Gerät nicht erreichbar</translation>
    </message>
    <message>
        <source>invalid link identifier</source>
        <translation>ungültige Verbindungskennung</translation>
    </message>
    <message>
        <source>parameter error</source>
        <translation>Parameterfehler</translation>
    </message>
    <message>
        <source>operation not supported</source>
        <translation>Vorgang nicht unterstützt</translation>
    </message>
    <message>
        <source>out of resources</source>
        <translation>keine Ressourcen mehr frei</translation>
    </message>
    <message>
        <source>device locked by another link</source>
        <translation>Gerät von einer anderen Verbindung gesperrt</translation>
    </message>
    <message>
        <source>I/O timeout</source>
        <translation>E/A-Zeitüberschreitung</translation>
    </message>
    <message>
        <source>I/O error</source>
        <translation>E/A-Fehler</translation>
    </message>
    <message>
        <source>invalid address</source>
        <translation>ungültige Adresse</translation>
    </message>
    <message>
        <source>abort</source>
        <translation>Abbruch</translation>
    </message>
    <message>
        <source>error %1</source>
        <translation>Fehler %1</translation>
    </message>
    <message>
        <source>cannot find the host %1</source>
        <translation>der Host %1 ist nicht zu finden</translation>
    </message>
    <message>
        <source>cannot ask the portmapper of %1 for its VXI-11 port (%2); give the port, as in vxi11://HOST:PORT</source>
        <translation>der Portmapper von %1 kann nicht nach dem VXI-11-Port gefragt werden (%2); geben Sie den Port an, wie in vxi11://HOST:PORT</translation>
    </message>
    <message>
        <source>the portmapper of %1 did not answer: %2</source>
        <translation>der Portmapper von %1 hat nicht geantwortet: %2</translation>
    </message>
    <message>
        <source>no VXI-11 service registered at %1</source>
        <translation>bei %1 ist kein VXI-11-Dienst registriert</translation>
    </message>
    <message>
        <source>cannot connect to the VXI-11 service of %1 (%2)</source>
        <translation>keine Verbindung zum VXI-11-Dienst von %1 (%2)</translation>
    </message>
    <message>
        <source>the VXI-11 service of %1 refused the link: %2</source>
        <translation>der VXI-11-Dienst von %1 hat die Verbindung abgelehnt: %2</translation>
    </message>
    <message>
        <source>the instrument %1 has no device %2: %3</source>
        <translation>das Gerät %1 hat kein Gerät %2: %3</translation>
    </message>
    <message>
        <source>The VXI-11 instrument %1 closed the connection: was it switched off?</source>
        <translation>Das VXI-11-Gerät %1 hat die Verbindung geschlossen: wurde es ausgeschaltet?</translation>
    </message>
    <message>
        <source>The VXI-11 instrument %1 failed: %2</source>
        <translation>Das VXI-11-Gerät %1 ist ausgefallen: %2</translation>
    </message>
    <message>
        <source>The VXI-11 instrument %1 refused a message: %2</source>
        <translation>Das VXI-11-Gerät %1 hat eine Nachricht abgelehnt: %2</translation>
    </message>
    <message>
        <source>The VXI-11 instrument %1 failed to answer: %2</source>
        <translation>Das VXI-11-Gerät %1 konnte nicht antworten: %2</translation>
    </message>
</context>
</TS>
