// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "keltest.h"

#include <kelcheckbox.h>
#include <kelpushbutton.h>
#include <kelroundrectcontrol.h>

#include <QtWidgets/QGraphicsRectItem>

namespace {

const QPoint onLeft(70, 50);
const QPoint onRight(270, 50);
const QPoint onNothing(170, 250);

// Two buttons on a plain control.
struct Stage
{
    Stage()
    {
        page->setboundRect(0, 0, 400, 200);
        left->setboundRect(20, 20, 100, 60);
        right->setboundRect(220, 20, 100, 60);
        view.ownScene.addItem(page);
        note(left, u"left"_s);
        note(right, u"right"_s);
    }
    void note(KELRoundRectControl *control, const QString &name)
    {
        QObject::connect(control, &KELRoundRectControl::mouseEnter, &view,
                         [this, name] { names.append(QLatin1Char('+') + name); });
        QObject::connect(control, &KELRoundRectControl::mouseLeave, &view,
                         [this, name] { names.append(QLatin1Char('-') + name); });
    }
    void hover(const QPoint &pos)
    {
        QMouseEvent event(QEvent::MouseMove, pos, view.viewport()->mapToGlobal(pos), Qt::NoButton,
                          Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(view.viewport(), &event);
    }
    QString take() { return std::exchange(names, {}).join(QLatin1Char(' ')); }

    KelTestView view;
    QPointer<KELRoundRectControl> page{new KELRoundRectControl};
    QPointer<KELPushButton> left{new KELPushButton(page)};
    QPointer<KELPushButton> right{new KELPushButton(page)};
    QStringList names;
};

} // namespace

using Action = std::function<void(Stage *)>;
Q_DECLARE_METATYPE(Action)

class tst_Hover : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void leaveComesBeforeEnter()
    {
        Stage stage;
        QVERIFY(stage.view.showAndWait());
        stage.hover(onLeft);
        QCOMPARE(stage.take(), u"+left"_s);
        stage.hover(onRight);
        QCOMPARE(stage.take(), u"-left +right"_s);
        stage.hover(onLeft);
        QCOMPARE(stage.take(), u"-right +left"_s);
    }

    void leaveComesAtOnceWhenNothingIsEntered()
    {
        Stage stage;
        QVERIFY(stage.view.showAndWait());
        stage.hover(onLeft);
        stage.hover(onNothing);
        QCOMPARE(stage.take(), u"+left -left"_s);
    }

    // An item of another kind takes the hover events.
    void leaveComesWithoutAnEnter()
    {
        Stage stage;
        QGraphicsRectItem item(QRectF(20, 220, 200, 60));
        item.setAcceptHoverEvents(true);
        stage.view.ownScene.addItem(&item);
        QVERIFY(stage.view.showAndWait());
        stage.hover(onLeft);
        stage.hover(onNothing);
        QTRY_COMPARE(stage.names.join(QLatin1Char(' ')), u"+left -left"_s);
        stage.hover(onRight);
        QCoreApplication::processEvents();
        QCOMPARE(stage.take(), u"+left -left +right"_s);
    }

    void leavingTheView()
    {
        Stage stage;
        QVERIFY(stage.view.showAndWait());
        stage.hover(onLeft);
        QCursor::setPos(
            stage.view.viewport()->mapToGlobal(onLeft)); // a popup opens there, for example
        QEvent leave(QEvent::Leave);
        QCoreApplication::sendEvent(stage.view.viewport(), &leave);
        QCOMPARE(stage.take(), u"+left -left"_s);
    }

    void leaveSlotDeletes_data()
    {
        QTest::addColumn<Action>("action");
        QTest::newRow("the one that is entered") << Action([](Stage *s) { delete s->right; });
        QTest::newRow("the one that is left") << Action([](Stage *s) { delete s->left; });
        QTest::newRow("both") << Action([](Stage *s) {
            delete s->right;
            delete s->left;
        });
        QTest::newRow("the parent of both") << Action([](Stage *s) { delete s->page; });
        QTest::newRow("everything") << Action([](Stage *s) { s->view.ownScene.clear(); });
        QTest::newRow("later the one that is entered")
            << Action([](Stage *s) { s->right->deleteLater(); });
        QTest::newRow("hides the one that is entered")
            << Action([](Stage *s) { s->right->hide(); });
        QTest::newRow("takes the one that is entered out") << Action([](Stage *s) {
            s->view.ownScene.removeItem(s->right);
            delete s->right;
        });
    }

    void leaveSlotDeletes()
    {
        QFETCH(Action, action);
        for (const bool plainEntered : {false, true}) {
            Stage stage;
            if (plainEntered) { // it goes with the button that it lies on
                auto *const item = new QGraphicsRectItem(QRectF(225, 25, 90, 50), stage.page);
                item->setAcceptHoverEvents(true);
                item->setZValue(9);
            }
            QVERIFY(stage.view.showAndWait());
            stage.hover(onLeft);
            int calls = 0;
            connect(stage.left, &KELRoundRectControl::mouseLeave, &stage.view, [&] {
                ++calls;
                action(&stage);
            });
            stage.hover(onRight);
            QTRY_COMPARE(calls, 1);
            stage.hover(onNothing);
            stage.hover(onRight);
            stage.hover(onLeft);
            QCoreApplication::processEvents();
        }
    }

    void enterSlotDeletes_data() { leaveSlotDeletes_data(); }

    void enterSlotDeletes()
    {
        QFETCH(Action, action);
        Stage stage;
        QVERIFY(stage.view.showAndWait());
        stage.hover(onLeft);
        connect(stage.right, &KELRoundRectControl::mouseEnter, &stage.view,
                [&] { action(&stage); });
        stage.hover(onRight);
        stage.hover(onNothing);
        stage.hover(onLeft);
    }

    void leftControlThatDiesIsForgotten()
    {
        Stage stage;
        QGraphicsRectItem item(QRectF(20, 220, 200, 60));
        item.setAcceptHoverEvents(true);
        stage.view.ownScene.addItem(&item);
        QVERIFY(stage.view.showAndWait());
        stage.hover(onLeft);
        stage.hover(onNothing);
        delete stage.left;
        stage.hover(onRight);
        QCoreApplication::processEvents();
        QVERIFY(stage.take().endsWith(QLatin1String("+right")));
    }
};

KEL_TEST_MAIN(tst_Hover)
#include "tst_hover.moc"
