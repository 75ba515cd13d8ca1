<?xml version="1.0" encoding="utf-8"?>
<!-- SPDX-FileCopyrightText: 2026 KELGdiControl contributors
     SPDX-License-Identifier: MIT -->
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>Charger</name>
    <message>
        <source>Charge point 3</source>
        <translation>Ladepunkt 3</translation>
    </message>
    <message>
        <source>Details</source>
        <translation>Einzelheiten</translation>
    </message>
    <message>
        <source>Power, kW</source>
        <translation>Leistung, kW</translation>
    </message>
    <message>
        <source>Limit</source>
        <translation>Grenze</translation>
    </message>
    <message>
        <source>Lock cable</source>
        <translation>Kabel sperren</translation>
    </message>
    <message>
        <source>Night only</source>
        <translation>Nur nachts</translation>
    </message>
    <message>
        <source>Energy</source>
        <translation>Energie</translation>
    </message>
    <message>
        <source>kWh</source>
        <translation>kWh</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>hours</source>
        <translation>Stunden</translation>
    </message>
    <message>
        <source>Cost</source>
        <translation>Kosten</translation>
    </message>
    <message>
        <source>EUR</source>
        <translation>EUR</translation>
    </message>
    <message>
        <source>%1 per kWh</source>
        <translation>%1 je kWh</translation>
    </message>
    <message>
        <source>Tap again to stop</source>
        <translation>Nochmal: Stopp</translation>
    </message>
    <message>
        <source>Stop charging</source>
        <translation>Laden stoppen</translation>
    </message>
    <message>
        <source>Start charging</source>
        <translation>Laden starten</translation>
    </message>
    <message>
        <source>Limit %1</source>
        <translation>Grenze %1</translation>
    </message>
    <message>
        <source>Charging, ready at %1</source>
        <translation>Lädt, fertig um %1</translation>
    </message>
    <message>
        <source>Waiting for the night</source>
        <translation>Wartet auf die Nacht</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Fertig</translation>
    </message>
    <message>
        <source>Stopped</source>
        <translation>Gestoppt</translation>
    </message>
</context>
<context>
    <name>Sessions</name>
    <message>
        <source>%1 kWh</source>
        <translation>%1 kWh</translation>
    </message>
    <message>
        <source>%1 EUR</source>
        <translation>%1 EUR</translation>
    </message>
    <message>
        <source>Details</source>
        <translation>Einzelheiten</translation>
    </message>
</context>
</TS>
