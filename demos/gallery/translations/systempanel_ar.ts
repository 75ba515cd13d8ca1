<?xml version="1.0" encoding="utf-8"?>
<!-- SPDX-FileCopyrightText: 2026 KELGdiControl contributors
     SPDX-License-Identifier: MIT -->
<!DOCTYPE TS>
<TS version="2.1" language="ar" sourcelanguage="en">
<context>
    <name>SystemPanel</name>
    <message>
        <source>System</source>
        <translation>النظام</translation>
    </message>
    <message>
        <source>Processor</source>
        <translation>المعالج</translation>
    </message>
    <message>
        <source>Memory</source>
        <translation>الذاكرة</translation>
    </message>
    <message>
        <source>Storage</source>
        <translation>التخزين</translation>
    </message>
    <message>
        <source>Temperature</source>
        <translation>الحرارة</translation>
    </message>
    <message>
        <source>Network</source>
        <translation>الشبكة</translation>
    </message>
    <message>
        <source>Backlight</source>
        <translation>الإضاءة الخلفية</translation>
    </message>
    <message>
        <source>Wi-Fi</source>
        <translation>واي فاي</translation>
    </message>
    <message>
        <source>up %1 d %2 h</source>
        <translation>يعمل منذ %1 ي %2 س</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 من %2</translation>
    </message>
    <message>
        <source>nearly full, %1 free</source>
        <translation>شبه ممتلئ، %1 متاح</translation>
    </message>
    <message>
        <source>%1 free</source>
        <translation>%1 متاح</translation>
    </message>
    <message>
        <source>limit %1°</source>
        <translation>الحد %1°</translation>
    </message>
    <message>
        <source>quality %1</source>
        <translation>الجودة %1</translation>
    </message>
    <message>
        <source>%1/s</source>
        <translation>%1/ث</translation>
    </message>
    <message>
        <source>only root may change it</source>
        <translation>يغيره الجذر فقط</translation>
    </message>
    <message>
        <source>not offered by this kernel</source>
        <translation>لا توفره النواة</translation>
    </message>
    <message>
        <source>%1 of %2 GHz</source>
        <translation>%1، %2 GHz</translation>
    </message>
    <message>
        <source>%1 cores</source>
        <translation>%1 نواة</translation>
    </message>
</context>
</TS>
