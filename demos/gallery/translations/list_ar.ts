<?xml version="1.0" encoding="utf-8"?>
<!-- SPDX-FileCopyrightText: 2026 KELGdiControl contributors
     SPDX-License-Identifier: MIT -->
<!DOCTYPE TS>
<TS version="2.1" language="ar" sourcelanguage="en">
<context>
    <name>ControlPage</name>
    <message>
        <source>Show code</source>
        <translation>عرض الشيفرة</translation>
    </message>
    <message>
        <source>Signals</source>
        <translation>الإشارات</translation>
    </message>
    <message>
        <source>Signals, as they come</source>
        <translation>الإشارات فور ورودها</translation>
    </message>
    <message>
        <source>The sample</source>
        <translation>المثال</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>نسخ</translation>
    </message>
</context>
<context>
    <name>Drawer</name>
    <message>
        <source>Close</source>
        <translation>إغلاق</translation>
    </message>
</context>
<context>
    <name>HomePage</name>
    <message>
        <source>Gallery</source>
        <translation>المعرض</translation>
    </message>
    <message>
        <source>Appearance</source>
        <translation>المظهر</translation>
    </message>
    <message>
        <source>Look</source>
        <translation>السمة</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>اللغة</translation>
    </message>
    <message>
        <source>Screens</source>
        <translation>الشاشات</translation>
    </message>
    <message>
        <source>Controls</source>
        <translation>عناصر التحكم</translation>
    </message>
</context>
<context>
    <name>Window</name>
    <message>
        <source>Light</source>
        <translation>فاتح</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>داكن</translation>
    </message>
    <message>
        <source>High contrast</source>
        <translation>تباين عالٍ</translation>
    </message>
</context>
<context>
    <name>Screens</name>
    <message>
        <source>Thermostat</source>
        <translation>منظم الحرارة</translation>
    </message>
    <message>
        <source>Charger</source>
        <translation>محطة الشحن</translation>
    </message>
    <message>
        <source>System</source>
        <translation>النظام</translation>
    </message>
</context>
</TS>
