<?xml version="1.0" encoding="utf-8"?>
<!-- SPDX-FileCopyrightText: 2026 KELGdiControl contributors
     SPDX-License-Identifier: MIT -->
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>Thermostat</name>
    <message>
        <source>Living room</source>
        <translation>Wohnzimmer</translation>
    </message>
    <message>
        <source>Holiday</source>
        <translation>Urlaub</translation>
    </message>
    <message>
        <source>Not set</source>
        <translation>Nicht gesetzt</translation>
    </message>
    <message>
        <source>%1 days</source>
        <translation>%1 Tage</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Aus</translation>
    </message>
    <message>
        <source>Heat</source>
        <translation>Heizen</translation>
    </message>
    <message>
        <source>Cool</source>
        <translation>Kühlen</translation>
    </message>
    <message>
        <source>Auto</source>
        <translation>Auto</translation>
    </message>
    <message>
        <source>Schedule</source>
        <translation>Zeitplan</translation>
    </message>
    <message>
        <source>Boost</source>
        <translation>Schnell</translation>
    </message>
    <message>
        <source>Last 24 hours</source>
        <translation>Letzte 24 Stunden</translation>
    </message>
    <message>
        <source>%1°</source>
        <translation>%1°</translation>
    </message>
    <message>
        <source>Humidity %1 %</source>
        <translation>Feuchte %1 %</translation>
    </message>
    <message>
        <source>%1 minutes left</source>
        <translation>noch %1 Minuten</translation>
    </message>
    <message>
        <source>30 minutes at 24.0</source>
        <translation>30 min mit 24.0</translation>
    </message>
    <message>
        <source>18.0 from 22:30</source>
        <translation>18.0 ab 22:30</translation>
    </message>
    <message>
        <source>Heating to %1</source>
        <translation>Heizt auf %1</translation>
    </message>
    <message>
        <source>Cooling to %1</source>
        <translation>Kühlt auf %1</translation>
    </message>
    <message>
        <source>Holding %1</source>
        <translation>Hält %1</translation>
    </message>
</context>
</TS>
