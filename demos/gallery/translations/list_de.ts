<?xml version="1.0" encoding="utf-8"?>
<!-- SPDX-FileCopyrightText: 2026 KELGdiControl contributors
     SPDX-License-Identifier: MIT -->
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>ControlPage</name>
    <message>
        <source>Show code</source>
        <translation>Code zeigen</translation>
    </message>
    <message>
        <source>Signals</source>
        <translation>Signale</translation>
    </message>
    <message>
        <source>Signals, as they come</source>
        <translation>Signale, wie sie kommen</translation>
    </message>
    <message>
        <source>The sample</source>
        <translation>Das Beispiel</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
</context>
<context>
    <name>Drawer</name>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>HomePage</name>
    <message>
        <source>Gallery</source>
        <translation>Galerie</translation>
    </message>
    <message>
        <source>Appearance</source>
        <translation>Erscheinung</translation>
    </message>
    <message>
        <source>Look</source>
        <translation>Aussehen</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Sprache</translation>
    </message>
    <message>
        <source>Screens</source>
        <translation>Bildschirme</translation>
    </message>
    <message>
        <source>Controls</source>
        <translation>Bedienelemente</translation>
    </message>
</context>
<context>
    <name>Window</name>
    <message>
        <source>Light</source>
        <translation>Hell</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>Dunkel</translation>
    </message>
    <message>
        <source>High contrast</source>
        <translation>Hoher Kontrast</translation>
    </message>
</context>
<context>
    <name>Screens</name>
    <message>
        <source>Thermostat</source>
        <translation>Thermostat</translation>
    </message>
    <message>
        <source>Charger</source>
        <translation>Ladesäule</translation>
    </message>
    <message>
        <source>System</source>
        <translation>System</translation>
    </message>
</context>
</TS>
