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
    <message>
        <source>The level at the bottom of the waveform</source>
        <translation>Der Pegel am unteren Ende der Kurvenform</translation>
    </message>
    <message>
        <source>The level at the top of the waveform</source>
        <translation>Der Pegel am oberen Ende der Kurvenform</translation>
    </message>
    <message>
        <source>The value of the quantity the waveform does not shape, the same at every step</source>
        <translation>Der Wert der Größe, die die Kurvenform nicht formt, bei jedem Schritt gleich</translation>
    </message>
    <message>
        <source>The length of one period of the waveform</source>
        <translation>Die Dauer einer Periode der Kurvenform</translation>
    </message>
    <message>
        <source>How long each step lasts: the waveform is sampled once per interval</source>
        <translation>Wie lange jeder Schritt dauert: die Kurvenform wird einmal je Intervall abgetastet</translation>
    </message>
    <message>
        <source>How many periods the template makes</source>
        <translation>Wie viele Perioden die Vorlage erzeugt</translation>
    </message>
    <message>
        <source>Turns the waveform upside down</source>
        <translation>Stellt die Kurvenform auf den Kopf</translation>
    </message>
    <message>
        <source>How long each pulse stays at the top</source>
        <translation>Wie lange jeder Impuls oben bleibt</translation>
    </message>
    <message>
        <source>How many pulses the template makes</source>
        <translation>Wie viele Impulse die Vorlage erzeugt</translation>
    </message>
    <message>
        <source>Where in the period the ramp turns, in percent: 0 only falls, 100 only rises, 50 rises and falls alike</source>
        <translation>Wo in der Periode die Rampe umkehrt, in Prozent: 0 fällt nur, 100 steigt nur, 50 steigt und fällt gleich</translation>
    </message>
    <message>
        <source>How many steps share the period</source>
        <translation>Wie viele Schritte sich die Periode teilen</translation>
    </message>
    <message>
        <source>How fast the curve approaches its end: a higher rate bends it sooner</source>
        <translation>Wie schnell sich die Kurve ihrem Ende nähert: eine höhere Rate krümmt sie früher</translation>
    </message>
    <message>
        <source>How many steps the curve has, each as long as the interval</source>
        <translation>Wie viele Schritte die Kurve hat, jeder so lang wie das Intervall</translation>
    </message>
    <message>
        <source>How many On and Off steps the template makes</source>
        <translation>Wie viele Ein- und Aus-Schritte die Vorlage erzeugt</translation>
    </message>
    <message>
        <source>How long the output stays On at each On step</source>
        <translation>Wie lange der Ausgang bei jedem Ein-Schritt eingeschaltet bleibt</translation>
    </message>
    <message>
        <source>How long the output stays Off at each Off step</source>
        <translation>Wie lange der Ausgang bei jedem Aus-Schritt ausgeschaltet bleibt</translation>
    </message>
    <message>
        <source>How long the first step lasts</source>
        <translation>Wie lange der erste Schritt dauert</translation>
    </message>
    <message>
        <source>How much longer each step lasts than the one before</source>
        <translation>Um wie viel länger jeder Schritt dauert als der vorige</translation>
    </message>
    <message>
        <source>How much shorter each step lasts than the one before; the last must stay longer than zero</source>
        <translation>Um wie viel kürzer jeder Schritt dauert als der vorige; der letzte muss länger als null bleiben</translation>
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
<context>
    <name>tarn2::specific::orvo5000::programmer::RangeNotice</name>
    <message>
        <source>%1 is above the largest value, %2</source>
        <translation>%1 liegt über dem größten Wert, %2</translation>
    </message>
    <message>
        <source>%1 is below the smallest value, %2</source>
        <translation>%1 liegt unter dem kleinsten Wert, %2</translation>
    </message>
    <message>
        <source>From %1 to %2</source>
        <translation>Von %1 bis %2</translation>
    </message>
    <message>
        <source>From %1 to %2 %3</source>
        <translation>Von %1 bis %2 %3</translation>
    </message>
</context>
</TS>
