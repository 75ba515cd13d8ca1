<?xml version="1.0" encoding="utf-8"?>
<!-- SPDX-FileCopyrightText: 2026 KELGdiControl contributors
     SPDX-License-Identifier: MIT -->
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>SystemPanel</name>
    <message>
        <source>System</source>
        <translation>System</translation>
    </message>
    <message>
        <source>Processor</source>
        <translation>Prozessor</translation>
    </message>
    <message>
        <source>Memory</source>
        <translation>Speicher</translation>
    </message>
    <message>
        <source>Storage</source>
        <translation>Datenträger</translation>
    </message>
    <message>
        <source>Temperature</source>
        <translation>Temperatur</translation>
    </message>
    <message>
        <source>Network</source>
        <translation>Netzwerk</translation>
    </message>
    <message>
        <source>Backlight</source>
        <translation>Hintergrundlicht</translation>
    </message>
    <message>
        <source>Wi-Fi</source>
        <translation>WLAN</translation>
    </message>
    <message>
        <source>up %1 d %2 h</source>
        <translation>seit %1 T %2 h</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 / %2</translation>
    </message>
    <message>
        <source>nearly full, %1 free</source>
        <translation>fast voll, %1 frei</translation>
    </message>
    <message>
        <source>%1 free</source>
        <translation>%1 frei</translation>
    </message>
    <message>
        <source>limit %1°</source>
        <translation>Grenze %1°</translation>
    </message>
    <message>
        <source>quality %1</source>
        <translation>Qualität %1</translation>
    </message>
    <message>
        <source>%1/s</source>
        <translation>%1/s</translation>
    </message>
    <message>
        <source>only root may change it</source>
        <translation>nur root darf das ändern</translation>
    </message>
    <message>
        <source>not offered by this kernel</source>
        <translation>nicht im Kernel</translation>
    </message>
    <message>
        <source>%1 of %2 GHz</source>
        <translation>%1 mit %2 GHz</translation>
    </message>
    <message>
        <source>%1 cores</source>
        <translation>%1 Kerne</translation>
    </message>
</context>
</TS>
