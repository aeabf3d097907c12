<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>DialogProgrammer</name>
    <message>
        <source>Dialog</source>
        <translation>Sequenzprogrammierer</translation>
    </message>
    <message>
        <source>List</source>
        <translation>Liste</translation>
    </message>
    <message>
        <source>Template</source>
        <translation>Vorlage</translation>
    </message>
    <message>
        <source>Voltage:</source>
        <translation>Spannung:</translation>
    </message>
    <message>
        <source>V</source>
        <translation>V</translation>
    </message>
    <message>
        <source>Maximum:</source>
        <translation>Maximum:</translation>
    </message>
    <message>
        <source>Type:</source>
        <translation>Typ:</translation>
    </message>
    <message>
        <source>Minimum:</source>
        <translation>Minimum:</translation>
    </message>
    <message>
        <source>Object:</source>
        <translation>Größe:</translation>
    </message>
    <message>
        <source>Voltage</source>
        <translation>Spannung</translation>
    </message>
    <message>
        <source>Current</source>
        <translation>Strom</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Vorgabe</translation>
    </message>
    <message>
        <source>Reset All</source>
        <translation>Alle Vorg.</translation>
    </message>
    <message>
        <source>Interval:</source>
        <translation>Intervall:</translation>
    </message>
    <message>
        <source>s</source>
        <translation>s</translation>
    </message>
    <message>
        <source>Period:</source>
        <translation>Periode:</translation>
    </message>
    <message>
        <source>Cycles:</source>
        <translation>Zyklen:</translation>
    </message>
    <message>
        <source>Inverted</source>
        <translation>Invertiert</translation>
    </message>
    <message>
        <source>Width:</source>
        <translation>Breite:</translation>
    </message>
    <message>
        <source>Count:</source>
        <translation>Anzahl:</translation>
    </message>
    <message>
        <source>Symmetry:</source>
        <translation>Symmetrie:</translation>
    </message>
    <message>
        <source>%</source>
        <translation>%</translation>
    </message>
    <message>
        <source>Steps:</source>
        <translation>Stufen:</translation>
    </message>
    <message>
        <source>Groups:</source>
        <translation>Gruppen:</translation>
    </message>
    <message>
        <source>Exp Rate:</source>
        <translation>Exp.-Rate:</translation>
    </message>
    <message>
        <source>Insert</source>
        <translation>Einfügen</translation>
    </message>
    <message>
        <source>Append</source>
        <translation>Anhängen</translation>
    </message>
    <message>
        <source>Data</source>
        <translation>Daten</translation>
    </message>
    <message>
        <source>Basic</source>
        <translation>Grundeinstellungen</translation>
    </message>
    <message>
        <source>Channel:</source>
        <translation>Kanal:</translation>
    </message>
    <message>
        <source>CH1</source>
        <translation>CH1</translation>
    </message>
    <message>
        <source>CH2</source>
        <translation>CH2</translation>
    </message>
    <message>
        <source>CH3</source>
        <translation>CH3</translation>
    </message>
    <message>
        <source>CH4</source>
        <translation>CH4</translation>
    </message>
    <message>
        <source>Series</source>
        <translation>Reihe</translation>
    </message>
    <message>
        <source>Parallel</source>
        <translation>Parallel</translation>
    </message>
    <message>
        <source>End State:</source>
        <translation>Endzustand:</translation>
    </message>
    <message>
        <source>Load</source>
        <translation>Laden</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Upload</source>
        <translation>Übertragen</translation>
    </message>
    <message>
        <source>Delayer</source>
        <translation>Delayer</translation>
    </message>
    <message>
        <source>Auto Generate</source>
        <translation>Automatisch erzeugen</translation>
    </message>
    <message>
        <source>Pattern:</source>
        <translation>Muster:</translation>
    </message>
    <message>
        <source>On Delay:</source>
        <translation>Einschaltdauer:</translation>
    </message>
    <message>
        <source>Off Delay:</source>
        <translation>Ausschaltdauer:</translation>
    </message>
    <message>
        <source>Base Value:</source>
        <translation>Grundwert:</translation>
    </message>
    <message>
        <source>Step:</source>
        <translation>Schrittweite:</translation>
    </message>
    <message>
        <source>Fix Time</source>
        <translation>Feste Zeit</translation>
    </message>
    <message>
        <source>Increase</source>
        <translation>Zunehmend</translation>
    </message>
    <message>
        <source>Decline</source>
        <translation>Abnehmend</translation>
    </message>
    <message>
        <source>ListUpload</source>
        <translation>Liste übertragen</translation>
    </message>
    <message>
        <source>Upload List</source>
        <translation>Liste übertragen</translation>
    </message>
    <message>
        <source>DelayerUpload</source>
        <translation>Delayer übertragen</translation>
    </message>
    <message>
        <source>Upload Delayer</source>
        <translation>Delayer übertragen</translation>
    </message>
    <message>
        <source>Sine</source>
        <translation>Sinus</translation>
    </message>
    <message>
        <source>Pulse</source>
        <translation>Puls</translation>
    </message>
    <message>
        <source>Ramp</source>
        <translation>Rampe</translation>
    </message>
    <message>
        <source>Stair Up</source>
        <translation>Treppe aufwärts</translation>
    </message>
    <message>
        <source>Stair Down</source>
        <translation>Treppe abwärts</translation>
    </message>
    <message>
        <source>Stair Up Down</source>
        <translation>Treppe auf und ab</translation>
    </message>
    <message>
        <source>Exponent Rise</source>
        <translation>Exponentieller Anstieg</translation>
    </message>
    <message>
        <source>Exponent Fall</source>
        <translation>Exponentieller Abfall</translation>
    </message>
</context>
<context>
    <name>tarn2::specific::orvo5000::programmer::ComboBoxDelegate</name>
    <message>
        <source>OFF</source>
        <translation>OFF</translation>
    </message>
    <message>
        <source>ON</source>
        <translation>ON</translation>
    </message>
</context>
<context>
    <name>tarn2::specific::orvo5000::programmer::DelayerTemplateModel</name>
    <message>
        <source>No.</source>
        <translation>Nr.</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Zustand</translation>
    </message>
    <message>
        <source>Time(s)</source>
        <translation>Zeit(s)</translation>
    </message>
</context>
<context>
    <name>tarn2::specific::orvo5000::programmer::DialogProgrammer</name>
    <message>
        <source>Invalid</source>
        <translation>Ungültig</translation>
    </message>
    <message>
        <source>This template would make %1 steps; at most %2 are allowed</source>
        <translation>Diese Vorlage ergäbe %1 Schritte; erlaubt sind höchstens %2</translation>
    </message>
    <message>
        <source>Output Off</source>
        <translation>Ausgang aus</translation>
    </message>
    <message>
        <source>Output On</source>
        <translation>Ausgang ein</translation>
    </message>
    <message>
        <source>Last</source>
        <translation>Letzter Zustand</translation>
    </message>
    <message>
        <source>Infinite</source>
        <translation>Endlos</translation>
    </message>
    <message>
        <source>01 Pattern</source>
        <translation>Muster 01</translation>
    </message>
    <message>
        <source>10 Pattern</source>
        <translation>Muster 10</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Zustand</translation>
    </message>
    <message>
        <source>Voltage(V)</source>
        <translation>Spannung(V)</translation>
    </message>
    <message>
        <source>Current(A)</source>
        <translation>Strom(A)</translation>
    </message>
    <message>
        <source>Voltage</source>
        <translation>Spannung</translation>
    </message>
    <message>
        <source>Current</source>
        <translation>Strom</translation>
    </message>
    <message>
        <source>Current:</source>
        <translation>Strom:</translation>
    </message>
    <message>
        <source>Voltage:</source>
        <translation>Spannung:</translation>
    </message>
    <message>
        <source>Append</source>
        <translation>Anhängen</translation>
    </message>
    <message>
        <source>Insert</source>
        <translation>Einfügen</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Leeren</translation>
    </message>
    <message>
        <source>The %1 data is empty</source>
        <translation>Die %1-Daten sind leer</translation>
    </message>
    <message>
        <source>list</source>
        <translation>Listen</translation>
    </message>
    <message>
        <source>delayer</source>
        <translation>Delayer</translation>
    </message>
</context>
<context>
    <name>tarn2::specific::orvo5000::programmer::ListDataModel</name>
    <message>
        <source>No.</source>
        <translation>Nr.</translation>
    </message>
    <message>
        <source>Voltage(V)</source>
        <translation>Spannung(V)</translation>
    </message>
    <message>
        <source>Current(A)</source>
        <translation>Strom(A)</translation>
    </message>
    <message>
        <source>Time(s)</source>
        <translation>Zeit(s)</translation>
    </message>
</context>
<context>
    <name>tarn2::specific::orvo5000::programmer::ListTemplateModel</name>
    <message>
        <source>No.</source>
        <translation>Nr.</translation>
    </message>
    <message>
        <source>Voltage(V)</source>
        <translation>Spannung(V)</translation>
    </message>
    <message>
        <source>Current(A)</source>
        <translation>Strom(A)</translation>
    </message>
    <message>
        <source>Time(s)</source>
        <translation>Zeit(s)</translation>
    </message>
</context>
<context>
    <name>tarn2::specific::orvo5000::programmer::ProgrammerUploader</name>
    <message>
        <source>The upload timed out</source>
        <translation>Die Übertragung hat das Zeitlimit überschritten</translation>
    </message>
</context>
</TS>
