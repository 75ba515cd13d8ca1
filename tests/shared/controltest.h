// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef CONTROLTEST_H
#define CONTROLTEST_H

#include "keltest.h"
#include "rows.h"

#include <kelroundrectcontrol.h>

#include <QtWidgets/QGraphicsSceneMouseEvent>

#include <limits>

// Counts its paints.
template <typename Control>
class Counting : public Control
{
public:
    using Control::Control;

    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override
    {
        ++paints;
        Control::paint(painter, option, widget);
    }

    int paints = 0;
};

// Lets a test call initStyle() once more, as a derived class does in its constructor.
template <typename Control>
class Restyled : public Control
{
public:
    using Control::Control;

    void makeStyleAgain() { this->m_style = this->initStyle(); }
};

// What the tests of several controls check alike. Each is the last call of a test function.
namespace ControlTest {

// A class adds neither signals nor slots, properties or enumerations to those of the base.
template <typename Control>
void declaresNoInterfaceOfItsOwn(const char *name)
{
    const QMetaObject &meta = Control::staticMetaObject;
    QCOMPARE(meta.className(), name);
    QCOMPARE(meta.superClass(), &KELRoundRectControl::staticMetaObject);
    QCOMPARE(meta.methodCount(), meta.methodOffset());
    QCOMPARE(meta.propertyCount(), meta.propertyOffset());
    QCOMPARE(meta.enumeratorCount(), meta.enumeratorOffset());
    QCOMPARE(Control().metaObject(), &meta);
}

// A class adds the property check and its three signals.
template <typename Control>
void declaresACheck(const char *name)
{
    const QMetaObject &meta = Control::staticMetaObject;
    QCOMPARE(QByteArray(meta.className()), QByteArray(name));
    QCOMPARE(meta.superClass(), &KELRoundRectControl::staticMetaObject);
    QCOMPARE(meta.methodCount() - meta.methodOffset(), 3);
    for (const char *signature : {"checked()", "unchecked()", "checkChanged()"})
        QVERIFY2(meta.indexOfSignal(signature) >= meta.methodOffset(), signature);
    QCOMPARE(meta.propertyCount() - meta.propertyOffset(), 1);
    const QMetaProperty property = meta.property(meta.propertyOffset());
    QCOMPARE(QByteArray(property.name()), QByteArray("check"));
    QCOMPARE(property.userType(), int(QMetaType::Bool));
    QVERIFY(property.isReadable());
    QVERIFY(property.isWritable());
    QVERIFY(!property.isConstant());
    QCOMPARE(property.notifySignal().methodSignature(), QByteArray("checkChanged()"));
}

// The constructor takes a parent item, also none.
template <typename Control>
void hasAParentItem()
{
    KELRoundRectControl parent;
    const auto *control = new Control(&parent);
    QCOMPARE(control->parentItem(), &parent);
    QCOMPARE(Control().parentItem(), nullptr);
    QCOMPARE(Control(nullptr).parentItem(), nullptr);
}

// For a control that is not meant to be tapped.
template <typename Control>
void hasInputSettingsOfTheBase()
{
    const Control control;
    const KELRoundRectControl base;
    QCOMPARE(control.flags(), base.flags());
    QCOMPARE(control.flags(), QGraphicsItem::ItemIsPanel);
    QCOMPARE(control.acceptedMouseButtons(), base.acceptedMouseButtons());
    QVERIFY(!control.acceptHoverEvents());
    QVERIFY(!control.acceptTouchEvents());
    QCOMPARE(control.filtersChildEvents(), base.filtersChildEvents());
    QCOMPARE(control.handlesChildEvents(), base.handlesChildEvents());
    QCOMPARE(control.cacheMode(), QGraphicsItem::DeviceCoordinateCache);
}

// For one that is; flags besides those of all such controls.
template <typename Control>
void takesPointerInput(QGraphicsItem::GraphicsItemFlags flags = {})
{
    const Control control;
    QVERIFY(control.acceptHoverEvents());
    QVERIFY(control.acceptTouchEvents());
    QCOMPARE(control.acceptedMouseButtons(), Qt::LeftButton);
    QCOMPARE(control.flags(), QGraphicsItem::ItemIsSelectable | QGraphicsItem::ItemIsPanel | flags);
    QCOMPARE(control.cacheMode(), QGraphicsItem::DeviceCoordinateCache);
    QVERIFY(!control.isSelected());
    QVERIFY(!control.isCheck());
}

// The fields of the record that no control gives another default.
inline void hasTheOtherDefaultsOfTheBase(const KELRoundRectControlStyle &style)
{
    QVERIFY(style.text.isNull());
    QCOMPARE(style.textFlags, 0x1084);
    QVERIFY(style.trimText);
    QCOMPARE(style.font, QFont());
    QCOMPARE(style.contextMenu, nullptr);
    QCOMPARE(style.margins, QMarginsF());
    QVERIFY(style.pixmap.isNull());
    QVERIFY(style.icon.isNull());
    QCOMPARE(style.iconSize, 30);
    QVERIFY(!style.isMouseDown);
    QVERIFY(!style.isCheck);
}

// Rows of a column "rect" in which a control draws nothing.
inline void addOddRectangles()
{
    QTest::addColumn<QRectF>("rect");
    constexpr qreal infinite = std::numeric_limits<qreal>::infinity();
    for (const qreal odd : {std::numeric_limits<qreal>::quiet_NaN(), infinite, -infinite}) {
        QTest::addRow("x is %g", odd) << QRectF(odd, 20, 80, 30);
        QTest::addRow("y is %g", odd) << QRectF(40, odd, 80, 30);
        QTest::addRow("width is %g", odd) << QRectF(40, 20, odd, 30);
        QTest::addRow("height is %g", odd) << QRectF(40, 20, 80, odd);
        QTest::addRow("everything is %g", odd) << QRectF(odd, odd, odd, odd);
    }
}

// For a control that filters the events of its children: it swallows those of another mouse button
// than the left one.
inline void addEventsOfChildren()
{
    addRows({{"type",
              {{"press", QEvent::GraphicsSceneMousePress},
               {"release", QEvent::GraphicsSceneMouseRelease},
               {"double click", QEvent::GraphicsSceneMouseDoubleClick},
               {"move", QEvent::GraphicsSceneMouseMove},
               {"context menu", QEvent::GraphicsSceneContextMenu},
               {"hover enter", QEvent::GraphicsSceneHoverEnter},
               {"wheel", QEvent::GraphicsSceneWheel},
               {"touch", QEvent::TouchBegin},
               {"key", QEvent::KeyPress},
               {"release of the mouse grab", QEvent::UngrabMouse},
               {"mouse press of a widget", QEvent::MouseButtonPress}}},
             {"button",
              {{"left", Qt::LeftButton},
               {"right", Qt::RightButton},
               {"middle", Qt::MiddleButton},
               {"back", Qt::BackButton},
               {"none", Qt::NoButton}}}});
}

template <typename Control>
void swallowsOtherButtonsOfChildren()
{
    struct Filter : Control
    {
        using Control::sceneEventFilter;
    } filter;
    QGraphicsSceneMouseEvent event(fetch<QEvent::Type>("type"));
    event.setButton(fetch<Qt::MouseButton>("button"));
    const bool isOfAButton = event.type() == QEvent::GraphicsSceneMousePress
        || event.type() == QEvent::GraphicsSceneMouseRelease
        || event.type() == QEvent::GraphicsSceneMouseDoubleClick;
    const bool isSwallowed = isOfAButton && event.button() != Qt::LeftButton;
    QCOMPARE(filter.sceneEventFilter(&filter, &event), isSwallowed);
    QCOMPARE(filter.sceneEventFilter(nullptr, &event), isSwallowed);
}

} // namespace ControlTest

#endif
