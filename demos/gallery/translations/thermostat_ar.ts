<?xml version="1.0" encoding="utf-8"?>
<!-- SPDX-FileCopyrightText: 2026 KELGdiControl contributors
     SPDX-License-Identifier: MIT -->
<!DOCTYPE TS>
<TS version="2.1" language="ar" sourcelanguage="en">
<context>
    <name>Thermostat</name>
    <message>
        <source>Living room</source>
        <translation>غرفة المعيشة</translation>
    </message>
    <message>
        <source>Holiday</source>
        <translation>العطلة</translation>
    </message>
    <message>
        <source>Not set</source>
        <translation>غير محددة</translation>
    </message>
    <message>
        <source>%1 days</source>
        <translation>%1 أيام</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>إيقاف</translation>
    </message>
    <message>
        <source>Heat</source>
        <translation>تدفئة</translation>
    </message>
    <message>
        <source>Cool</source>
        <translation>تبريد</translation>
    </message>
    <message>
        <source>Auto</source>
        <translation>تلقائي</translation>
    </message>
    <message>
        <source>Schedule</source>
        <translation>الجدول</translation>
    </message>
    <message>
        <source>Boost</source>
        <translation>تعزيز</translation>
    </message>
    <message>
        <source>Last 24 hours</source>
        <translation>آخر 24 ساعة</translation>
    </message>
    <message>
        <source>%1°</source>
        <translation>%1°</translation>
    </message>
    <message>
        <source>Humidity %1 %</source>
        <translation>الرطوبة %1 %</translation>
    </message>
    <message>
        <source>%1 minutes left</source>
        <translation>بقيت %1 دقيقة</translation>
    </message>
    <message>
        <source>30 minutes at 24.0</source>
        <translation>30 دقيقة عند 24.0</translation>
    </message>
    <message>
        <source>18.0 from 22:30</source>
        <translation>18.0 من 22:30</translation>
    </message>
    <message>
        <source>Heating to %1</source>
        <translation>يدفئ إلى %1</translation>
    </message>
    <message>
        <source>Cooling to %1</source>
        <translation>يبرد إلى %1</translation>
    </message>
    <message>
        <source>Holding %1</source>
        <translation>يحافظ على %1</translation>
    </message>
</context>
</TS>
