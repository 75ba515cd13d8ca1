// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "partstage.h"

#include "hand.h"

#include <kelcheckbox.h>
#include <kelmotion.h>
#include <kelpicker.h>
#include <kelpindialog.h>
#include <kelpushbutton.h>
#include <kelrange.h>
#include <kelrow.h>
#include <kelvalues.h>

#include <QtCore/QAbstractItemModel>
#include <QtTest/QtTest>

namespace {

constexpr QSize screenSize(320, 240);
constexpr QSizeF rowSize(320, 60);

bool isOfInterest(const QObject *object)
{
    return qobject_cast<const QAbstractItemModel *>(object)
        || QByteArray(object->metaObject()->className()).startsWith("KEL");
}

KELRow *addRow(PartStage *stage, int place, KELRow::End end)
{
    auto *const row = stage->add(new KELRow(stage->page));
    row->setCaption(QStringLiteral("Row"));
    row->setEnd(end);
    row->setGeometry(QRectF(QPointF(0, place * rowSize.height()), rowSize));
    stage->addSpot(row->geometry().center().toPoint());
    return row;
}

void buildRows(PartStage *stage)
{
    addRow(stage, 0, KELRow::Switch);
    addRow(stage, 1, KELRow::Radio);
    addRow(stage, 2, KELRow::Radio)->setChecked(true);
    addRow(stage, 3, KELRow::Arrow);
}

void buildRange(PartStage *stage)
{
    auto *const range = stage->add(new KELRange(stage->page));
    range->setGeometry(20, 40, 280, 60);
    range->setBubbleShown(true);
    stage->addSpot(QPoint(160, 70));
}

void buildValues(PartStage *stage)
{
    buildRange(stage);
    auto *const box = stage->add(new KELCheckBox(stage->page));
    box->setboundRect(20, 120, 100, 50);
    auto *const label = stage->add(new KELPushButton(stage->page));
    label->setboundRect(140, 120, 100, 50);
    auto *const range = stage->find<KELRange>();
    stage->add(KELValues::of(box));
    stage->add(KELValues::of(label));
    stage->add(KELValues::show(range, "value", label));
    stage->add(KELValues::edit(range, "enabled", box, "check"));
    stage->addSpot(QPoint(70, 145));
}

void buildPages(PartStage *stage)
{
    stage->screen->setSlideEnabled(true);
    buildRows(stage);
    auto *const page = stage->add(new KELPage);
    auto *const button = stage->add(new KELPushButton(page));
    button->setboundRect(100, 100, 100, 50);
    stage->screen->push(page);
    stage->addSpot(QPoint(150, 125));
}

void buildPinDialog(PartStage *stage)
{
    auto *const dialog = stage->add(new KELPinDialog);
    dialog->setPinLength(1);
    dialog->open(stage->screen->scene());
    for (const int y : {70, 140, 200})
        stage->addSpot(QPoint(250, y));
}

void buildPicker(PartStage *stage)
{
    auto *const picker = stage->add(new KELPicker(stage->page));
    picker->setItems({QStringLiteral("One"), QStringLiteral("Two"), QStringLiteral("Three")});
    picker->setCurrentIndex(0);
    picker->setGeometry(QRectF(QPointF(), rowSize));
    stage->add(picker->model());
    stage->addSpot(QPoint(160, 30));
}

void buildOpenPicker(PartStage *stage)
{
    buildPicker(stage);
    stage->find<KELPicker>()->open();
    stage->addSpot(QPoint(160, 170));
}

void tap(PartStage *stage, const QPoint &pos)
{
    Hand(stage->screen->viewport()).tap(pos);
}

void doubleTap(PartStage *stage, const QPoint &pos)
{
    Hand(stage->screen->viewport()).doubleTap(pos);
}

void touch(PartStage *stage, const QPoint &pos)
{
    Hand hand(stage->screen->viewport(), Input::Touch);
    hand.tap(pos);
}

void drag(PartStage *stage, const QPoint &pos)
{
    Hand(stage->screen->viewport()).drag(pos, pos + QPoint(20, -60), 3);
}

void loseAPress(PartStage *stage, const QPoint &pos)
{
    Hand hand(stage->screen->viewport());
    hand.press(pos);
    if (stage->page)
        stage->page->hide();
    hand.release();
    if (stage->page)
        stage->page->show();
}

void pressKeys(PartStage *stage, const QPoint & /*pos*/)
{
    if (auto *const row = stage->find<KELRow>())
        row->setFocus();
    else if (auto *const range = stage->find<KELRange>())
        range->setFocus();
    for (const Qt::Key key :
         {Qt::Key_Space, Qt::Key_1, Qt::Key_Up, Qt::Key_Down, Qt::Key_Return, Qt::Key_Escape}) {
        if (stage->screen)
            QTest::keyClick(stage->screen.data(), key);
    }
}

void setValues(PartStage *stage, const QPoint & /*pos*/)
{
    if (auto *const row = stage->find<KELRow>(1))
        row->setChecked(true);
    if (auto *const picker = stage->find<KELPicker>())
        picker->setCurrentIndex(2);
    if (auto *const range = stage->find<KELRange>())
        range->setValue(30);
    if (auto *const box = stage->find<KELCheckBox>())
        box->setCheck(!box->isCheck());
    if (auto *const label = stage->find<KELPushButton>()) {
        if (KELValues *const values = KELValues::of(label))
            values->setProperty("text", QStringLiteral("other"));
    }
}

void answer(PartStage *stage, const QPoint & /*pos*/)
{
    for (const bool isRight : {false, true}) {
        if (auto *const dialog = stage->find<KELPinDialog>()) {
            if (isRight)
                dialog->accept();
            else
                dialog->reject();
        }
    }
}

void cancel(PartStage *stage, const QPoint & /*pos*/)
{
    if (auto *const dialog = stage->find<KELPinDialog>())
        dialog->cancel();
}

void changePages(PartStage *stage, const QPoint & /*pos*/)
{
    if (stage->screen)
        stage->screen->pop();
    if (stage->screen)
        stage->screen->push(stage->add(new KELPage));
    if (stage->screen)
        stage->screen->back();
}

void resize(PartStage *stage, const QPoint & /*pos*/)
{
    stage->screen->resize(screenSize.transposed());
}

} // namespace

PartStage::PartStage() : screen(new KELScreen), page(new KELPage)
{
    add(screen.data());
    add(page.data());
    screen->resize(screenSize);
    screen->push(page);
}

PartStage::~PartStage()
{
    for (const QPointer<QObject> &object : qAsConst(m_objects))
        delete object;
}

void PartStage::walk()
{
    const QList<QGraphicsItem *> items = screen->scene()->items();
    for (QGraphicsItem *item : items) {
        QObject *const object = item->toGraphicsObject();
        if (object && isOfInterest(object) && !m_objects.contains(object))
            m_objects.append(object);
    }
}

const std::vector<PartStageKind> &partStages()
{
    static const std::vector<PartStageKind> all = {
        {"rows", buildRows},
        {"range", buildRange},
        {"values", buildValues},
        {"pages", buildPages},
        {"PIN dialog", buildPinDialog},
        {"picker", buildPicker},
        {"open picker", buildOpenPicker},
    };
    return all;
}

const std::vector<PartAction> &partActions()
{
    static const std::vector<PartAction> all = {
        {"tap", true, tap},
        {"double tap", true, doubleTap},
        {"touch", true, touch},
        {"drag", true, drag},
        {"lost press", true, loseAPress},
        {"keys", false, pressKeys},
        {"values", false, setValues},
        {"answers", false, answer},
        {"cancel", false, cancel},
        {"pages", false, changePages},
        {"resize", false, resize},
    };
    return all;
}
