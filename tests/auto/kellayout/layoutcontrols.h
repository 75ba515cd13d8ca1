// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef LAYOUTCONTROLS_H
#define LAYOUTCONTROLS_H

#include "keltest.h"
#include "rows.h"

#include <kelcheckbox.h>
#include <kelcombobox.h>
#include <kellabel.h>
#include <kellayout.h>
#include <kellineitem.h>
#include <kelnavigationtable.h>
#include <kelprocessbar.h>
#include <kelpushbutton.h>
#include <kelradiobox.h>
#include <kelslidecontrol.h>

#include <QtWidgets/QGraphicsGridLayout>
#include <QtWidgets/QGraphicsLinearLayout>
#include <QtWidgets/QGraphicsWidget>

// A control of each class, with something to see.
enum class Kind { Panel, Button, Check, Radio, Label, Slider, Bar, Combo, Line, Upright, Table };

inline const std::vector<Named> kinds{
    {"panel", int(Kind::Panel)},     {"button", int(Kind::Button)},
    {"check box", int(Kind::Check)}, {"radio box", int(Kind::Radio)},
    {"label", int(Kind::Label)},     {"slider", int(Kind::Slider)},
    {"bar", int(Kind::Bar)},         {"combo box", int(Kind::Combo)},
    {"line", int(Kind::Line)},       {"upright line", int(Kind::Upright)},
    {"table", int(Kind::Table)}};

inline KELRoundRectControl *newSlider()
{
    auto *slider = new KELSlideControl;
    slider->setMinimun(20);
    slider->setMaximun(60);
    slider->setValue(50);
    slider->setStep(5);
    return slider;
}

inline KELRoundRectControl *newComboBox()
{
    auto *comboBox = new KELComboBox;
    for (int i = 0; i < 3; ++i)
        comboBox->addItem(i, u"Entry %1"_s.arg(i));
    comboBox->setSelectIndex(1);
    return comboBox;
}

// Pages are placed when they are added.
inline KELRoundRectControl *newTable(const QRectF &rect = QRectF(0, 0, 440, 310))
{
    auto *table = new KELNavigationTable;
    table->setboundRect(rect);
    for (const QString &name : {u"One"_s, u"Two"_s}) {
        auto *page = new KELNavigationTableItem;
        page->setText(name);
        table->addItem(page);
    }
    return table;
}

inline KELRoundRectControl *newLine(const QPointF &end)
{
    auto *line = new KELLineItem;
    line->style()->borderWidth = 3;
    line->setLine(QPointF(0, 0), end);
    return line;
}

inline KELRoundRectControl *withText(KELRoundRectControl *control)
{
    control->setText(u"Hgf"_s);
    control->style()->foregroundBrush = QColor(Qt::black);
    if (control->style()->borderWidth > 0)
        control->style()->borderWidth = 1; // Qt draws a thinner one as wide
    return control;
}

inline KELRoundRectControl *newControl(Kind kind)
{
    switch (kind) {
    case Kind::Panel:
        return withText(new KELRoundRectControl);
    case Kind::Button:
        return withText(new KELPushButton);
    case Kind::Check:
        return new KELCheckBox;
    case Kind::Radio:
        return new KELRadioBox;
    case Kind::Label:
        return withText(new KELLabel);
    case Kind::Slider:
        return newSlider();
    case Kind::Bar:
        return new KELProcessBar;
    case Kind::Combo:
        return newComboBox();
    case Kind::Line:
        return newLine(QPointF(10, 0));
    case Kind::Upright:
        return newLine(QPointF(0, 10));
    case Kind::Table:
        break;
    }
    return newTable();
}

// The geometry in the scene.
inline QRectF sceneGeometry(KELRoundRectControl *control)
{
    return control->parentItem()->mapRectToScene(KELLayout::item(control)->geometry());
}

// What the control may paint and where it is pressed, without its list.
inline QRectF sceneBounds(const KELRoundRectControl *control)
{
    return control->mapRectToScene(control->boundingRect());
}

#endif
