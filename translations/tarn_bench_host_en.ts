<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
    <name>History</name>
    <message numerus="yes">
        <source>%n record(s) wait in %1 until the history server is back</source>
        <translation>
            <numerusform>%n record waits in %1 until the history server is back</numerusform>
            <numerusform>%n records wait in %1 until the history server is back</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message numerus="yes">
        <source>Add %n steps</source>
        <translation>
            <numerusform>Add %n step</numerusform>
            <numerusform>Add %n steps</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Clear %n steps</source>
        <translation>
            <numerusform>Clear %n step</numerusform>
            <numerusform>Clear %n steps</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Delete %n steps</source>
        <translation>
            <numerusform>Delete %n step</numerusform>
            <numerusform>Delete %n steps</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>tarn::host::InstrumentStatusView</name>
    <message numerus="yes">
        <source>%n errors waiting</source>
        <translation>
            <numerusform>%n error waiting</numerusform>
            <numerusform>%n errors waiting</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>tarn::host::SequenceClipboard</name>
    <message numerus="yes">
        <source>Copied %n steps</source>
        <translation>
            <numerusform>Copied %n step</numerusform>
            <numerusform>Copied %n steps</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Pasted %n steps</source>
        <translation>
            <numerusform>Pasted %n step</numerusform>
            <numerusform>Pasted %n steps</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>tarn::host::SequenceFiles</name>
    <message numerus="yes">
        <source>%1 was not loaded: %2.

Load its %n steps with the end state Output Off?</source>
        <translation>
            <numerusform>%1 was not loaded: %2.

Load its %n step with the end state Output Off?</numerusform>
            <numerusform>%1 was not loaded: %2.

Load its %n steps with the end state Output Off?</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Saved %n steps to %1</source>
        <translation>
            <numerusform>Saved %n step to %1</numerusform>
            <numerusform>Saved %n steps to %1</numerusform>
        </translation>
    </message>
</context>
</TS>
