<?xml version="1.0" encoding="utf-8"?>
<!-- SPDX-FileCopyrightText: 2026 KELGdiControl contributors
     SPDX-License-Identifier: MIT -->
<!DOCTYPE TS>
<TS version="2.1" language="ar" sourcelanguage="en">
<context>
    <name>Charger</name>
    <message>
        <source>Charge point 3</source>
        <translation>نقطة الشحن 3</translation>
    </message>
    <message>
        <source>Details</source>
        <translation>التفاصيل</translation>
    </message>
    <message>
        <source>Power, kW</source>
        <translation>القدرة، ك.و</translation>
    </message>
    <message>
        <source>Limit</source>
        <translation>الحد</translation>
    </message>
    <message>
        <source>Lock cable</source>
        <translation>قفل الكابل</translation>
    </message>
    <message>
        <source>Night only</source>
        <translation>ليلاً فقط</translation>
    </message>
    <message>
        <source>Energy</source>
        <translation>الطاقة</translation>
    </message>
    <message>
        <source>kWh</source>
        <translation>ك.و.س</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>الوقت</translation>
    </message>
    <message>
        <source>hours</source>
        <translation>ساعات</translation>
    </message>
    <message>
        <source>Cost</source>
        <translation>التكلفة</translation>
    </message>
    <message>
        <source>EUR</source>
        <translation>يورو</translation>
    </message>
    <message>
        <source>%1 per kWh</source>
        <translation>%1 لكل ك.و.س</translation>
    </message>
    <message>
        <source>Tap again to stop</source>
        <translation>اضغط مجدداً</translation>
    </message>
    <message>
        <source>Stop charging</source>
        <translation>إيقاف الشحن</translation>
    </message>
    <message>
        <source>Start charging</source>
        <translation>بدء الشحن</translation>
    </message>
    <message>
        <source>Limit %1</source>
        <translation>الحد %1</translation>
    </message>
    <message>
        <source>Charging, ready at %1</source>
        <translation>يشحن، جاهز في %1</translation>
    </message>
    <message>
        <source>Waiting for the night</source>
        <translation>ينتظر الليل</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>انتهى</translation>
    </message>
    <message>
        <source>Stopped</source>
        <translation>متوقف</translation>
    </message>
</context>
<context>
    <name>Sessions</name>
    <message>
        <source>%1 kWh</source>
        <translation>%1 ك.و.س</translation>
    </message>
    <message>
        <source>%1 EUR</source>
        <translation>%1 يورو</translation>
    </message>
    <message>
        <source>Details</source>
        <translation>التفاصيل</translation>
    </message>
</context>
</TS>
