// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "checks.h"

#include "stage.h"

#include <kelcheckbox.h>
#include <kelcombobox.h>
#include <kellabel.h>
#include <kelnavigationtable.h>
#include <kelprocessbar.h>
#include <kelpushbutton.h>
#include <kelslidecontrol.h>

#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtWidgets/QStyleOptionGraphicsItem>

using namespace Monkey;

namespace {

void checkGroup(Stage *stage, const Stage::Group &group)
{
    if (!group.group)
        return;
    const KELRadioBox *const selected = group.boxes.value(group.group->id());
    if (!selected)
        return; // no box has that id
    for (const QPointer<KELRadioBox> &box : group.boxes) {
        if (box && box->isCheck() != (box == selected))
            stage->fail(QStringLiteral("not exactly one box of a group is checked"));
    }
}

void checkComboBox(Stage *stage, const KELComboBox *box)
{
    const int index = box->selectIndex();
    const QList<KELComboBoxItem *> items = box->items();
    if (index < -1 || index >= items.size())
        stage->fail(QStringLiteral("the index of a combo box is out of range"));
    else if (box->selectedItem() != items.value(index, nullptr))
        stage->fail(QStringLiteral("the selected entry is not that of the index"));
}

void checkTable(Stage *stage, const KELNavigationTable *table)
{
    const int index = table->selectIndex();
    const KELNavigationTableItem *const page = table->selectItem();
    if (index < -1 || (index == -1) != (page == nullptr))
        stage->fail(QStringLiteral("the index of a table does not fit its page"));
    else if (page && !table->isAncestorOf(page))
        stage->fail(QStringLiteral("the page of a table is not in it"));
}

void checkPressedLook(Stage *stage, const Witness *witness)
{
    const KELRoundRectControl *const control = witness->control();
    const bool looksPressed = control->style()->isMouseDown;
    if (looksPressed != control->isMouseDown())
        stage->fail(QStringLiteral("the pressed look differs from isMouseDown()"));
    if (looksPressed && stage->hands.areEmpty() && !witness->mayStay())
        stage->fail(QStringLiteral("a control looks pressed without a pointer"));
}

// How far beyond its rectangle a control of this class may paint, or a negative number if it is too
// small for its parts, or paints elsewhere.
qreal reachOf(const KELRoundRectControl *control)
{
    const QRectF rect = control->boundingRect();
    const bool isUsual = qAbs(rect.x()) < 1000 && qAbs(rect.y()) < 1000 && rect.width() >= 80
        && rect.height() >= 35 && rect.width() <= 300 && rect.height() <= 300;
    if (!isUsual)
        return -1;
    const QMetaObject *const meta = control->metaObject();
    const auto is = [meta](const QMetaObject &other) { return meta->inherits(&other); };
    if (is(KELCheckBox::staticMetaObject)
        || (is(KELSlideControl::staticMetaObject) && !control->parentItem()))
        return 1;
    if (is(KELPushButton::staticMetaObject) || is(KELLabel::staticMetaObject)
        || is(KELProcessBar::staticMetaObject)
        || (is(KELRadioBox::staticMetaObject) && !control->parentItem()))
        return 0;
    return -1;
}

QImage painted(KELRoundRectControl *control, int marginPx)
{
    const QRect canvas = control->boundingRect().toAlignedRect().adjusted(-marginPx, -marginPx,
                                                                          marginPx, marginPx);
    QImage image(canvas.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.translate(-canvas.topLeft());
    QStyleOptionGraphicsItem option;
    control->paint(&painter, &option, nullptr);
    return image;
}

bool paintsOutside(KELRoundRectControl *control, qreal reach)
{
    constexpr int marginPx = 20;
    const QImage image = painted(control, marginPx);
    const int margin = marginPx - int(reach);
    const QRect inside = image.rect().adjusted(margin, margin, -margin, -margin);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) != 0 && !inside.contains(x, y))
                return true;
        }
    }
    return false;
}

} // namespace

void Monkey::checkAfterStep(Stage *stage)
{
    for (const Stage::Group &group : stage->groups)
        checkGroup(stage, group);
    for (int i = 0; i < Stage::itemCount; ++i) {
        if (const auto *box = stage->itemAs<KELComboBox>(i))
            checkComboBox(stage, box);
        else if (const auto *table = stage->itemAs<KELNavigationTable>(i))
            checkTable(stage, table);
    }
}

void Monkey::checkAfterTurn(Stage *stage)
{
    constexpr int maxPaints = 6 * Stage::itemCount * Stage::viewCount;
    const QList<Witness *> witnesses = stage->witnesses();
    for (const Witness *witness : witnesses)
        checkPressedLook(stage, witness);
    if (stage->paintsInTurn > maxPaints)
        stage->fail(QStringLiteral("too many paints in one turn of the event loop"));
}

void Monkey::checkPaintingOf(Stage *stage)
{
    for (int i = 0; i < Stage::itemCount; ++i) {
        KELRoundRectControl *const control = stage->item(i);
        const Witness *const witness = control ? stage->witness(control) : nullptr;
        const qreal reach = control ? reachOf(control) : -1;
        if (!witness || witness->isOdd() || reach < 0)
            continue;
        if (paintsOutside(control, reach)) {
            stage->fail(QStringLiteral("%1 paints outside its rectangle")
                            .arg(QLatin1String(control->metaObject()->className())));
        }
        return; // one for each stage: it takes long
    }
}
