// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "checkboxpage.h"

#include "code/code.h"
#include "eventlog.h"

#include <KELCheckBox>

namespace {

constexpr qreal switchPx = 80;
constexpr qreal switchHeightPx = 38; // the track, and a little room

// A check box adds 70 to the colour of its knob, and subtracts 70 from that of its track.
QColor within(QRgb colour, int least, int most)
{
    return {qBound(least, qRed(colour), most), qBound(least, qGreen(colour), most),
            qBound(least, qBlue(colour), most)};
}

void dress(KELCheckBox *box)
{
    auto *style = static_cast<KELCheckBoxStyle *>(box->style());
    style->backgroundBrush = within(Theme::line, 70, 255);
    style->borderBrush = QColor(Theme::faint);
    style->indicatorBrush = within(Theme::leaf, 0, 185);
}

} // namespace

CheckBoxPage::CheckBoxPage(const PageHost &pageHost, const QRectF &area) :
    CardPage(pageHost, area, QStringLiteral("Check box"),
             QStringLiteral("A switch; give it a row (KELRow) if its caption shall be tapped, too"))
{
    addSamples(newCard(QStringLiteral("Tap it; its code is shown")), {newSwitch(switchPx, false)});
    addSamples(newCard(QStringLiteral("It takes the width that it is given")),
               {newSwitch(48, false), newSwitch(64, true), newSwitch(160, true)}, 72);
    addLooks(QStringLiteral("In the colours of the theme"), false);
    addLooks(QStringLiteral("In colours of its own"), true);
}

CardPage::Sample CheckBoxPage::newSwitch(qreal width, bool isCheckedAtFirst)
{
    KELCheckBox *box = Code::newSwitch();
    box->setObjectName(QStringLiteral("switch-%1").arg(width));
    box->setCheck(remembered(box->objectName(), isCheckedAtFirst) != 0);
    host.log->watch(box, QStringLiteral("Switch %1 px").arg(width));
    connect(box, &KELCheckBox::checkChanged, this,
            [this, box] { remembered(box->objectName()) = box->isCheck(); });
    return {box, QStringLiteral("%1 px").arg(width), width, Theme::touch};
}

void CheckBoxPage::addLooks(const QString &caption, bool isDressed)
{
    QVector<Sample> samples;
    for (const char *look : {"Off", "On", "Off, disabled", "On, disabled"}) {
        const QString name = QLatin1String(look);
        auto *box = new KELCheckBox;
        box->setCheck(name.startsWith(QLatin1String("On")));
        box->setEnabled(!name.endsWith(QLatin1String("disabled")));
        if (isDressed)
            dress(box);
        host.log->watch(box, name);
        samples.append({box, name, switchPx, switchHeightPx});
    }
    addSamples(newCard(caption), samples, 128);
}
