// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "kelcontentview.h"
#include "kelroundrectcontrol.h"
#include "keltest.h"

#include <QtCore/QPointer>

namespace {

using ControlPointer = QPointer<KELRoundRectControl>;

KELRoundRectControl *newControl(KELRoundRectControl *parent = nullptr)
{
    auto *control = new KELRoundRectControl(parent);
    control->setboundRect(0, 0, 50, 20);
    return control;
}

} // namespace

// setContent() called from slots that setContent() itself sets off.
class tst_KELContentViewReentry : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void dyingContentGivesAChildOfTheNextOne();
    void supersededControlGivesYetAnother();
    void supersededControlGivesItselfAnother();
    void controlGivenAgainAfterAnotherIsKept();
    void controlThatTookInAPendingOneKeepsIt();
    void dyingContentIsNotHandedOut();
    void controlDeletedOnItsWayOutOfTheScene();
    void controlReplacedOnItsWayOutOfTheScene();
};

void tst_KELContentViewReentry::dyingContentGivesAChildOfTheNextOne()
{
    KELContentView view;
    KELRoundRectControl *old = newControl();
    view.setContent(old);
    const ControlPointer next = newControl();
    const ControlPointer child = newControl(next);
    connect(old, &QObject::destroyed, &view, [&] { view.setContent(child); });
    view.setContent(next);
    QVERIFY(child);
    QVERIFY(!next);
    QCOMPARE(view.content(), child.data());
    QCOMPARE(view.scene()->items(), QList<QGraphicsItem *>({child.data()}));
}

void tst_KELContentViewReentry::supersededControlGivesYetAnother()
{
    KELContentView view;
    KELRoundRectControl *old = newControl();
    view.setContent(old);
    const ControlPointer a = newControl();
    const ControlPointer b = newControl();
    const ControlPointer c = newControl();
    connect(old, &QObject::destroyed, &view, [&] { view.setContent(b); });
    connect(a, &QObject::destroyed, &view, [&] { view.setContent(c); });
    view.setContent(a);
    QVERIFY(!a);
    QVERIFY(!b);
    QVERIFY(c);
    QCOMPARE(view.content(), c.data());
    QCOMPARE(view.scene()->items(), QList<QGraphicsItem *>({c.data()}));
}

void tst_KELContentViewReentry::supersededControlGivesItselfAnother()
{
    KELContentView view;
    KELRoundRectControl *old = newControl();
    view.setContent(old);
    const ControlPointer a = newControl();
    KELRoundRectControl *childOfA = newControl(a);
    const ControlPointer b = newControl();
    const ControlPointer c = newControl();
    connect(old, &QObject::destroyed, &view, [&] { view.setContent(b); });
    // Only the base classes of its parent are left at this moment.
    connect(childOfA, &QObject::destroyed, &view, [&] { view.setContent(c); });
    view.setContent(a);
    QVERIFY(!a);
    QVERIFY(!b);
    QCOMPARE(view.content(), c.data());
    QCOMPARE(view.scene()->items(), QList<QGraphicsItem *>({c.data()}));
}

void tst_KELContentViewReentry::controlGivenAgainAfterAnotherIsKept()
{
    KELContentView view;
    KELRoundRectControl *old = newControl();
    view.setContent(old);
    const ControlPointer a = newControl();
    const ControlPointer b = newControl();
    connect(old, &QObject::destroyed, &view, [&] {
        view.setContent(b);
        view.setContent(a);
    });
    view.setContent(a);
    QVERIFY(!b);
    QCOMPARE(view.content(), a.data());
    QCOMPARE(view.scene()->items(), QList<QGraphicsItem *>({a.data()}));
}

void tst_KELContentViewReentry::controlThatTookInAPendingOneKeepsIt()
{
    KELContentView view;
    KELRoundRectControl *old = newControl();
    view.setContent(old);
    const ControlPointer a = newControl();
    const ControlPointer b = newControl();
    connect(old, &QObject::destroyed, &view, [&] {
        a->setParentItem(b);
        view.setContent(b);
    });
    view.setContent(a);
    QVERIFY(a);
    QCOMPARE(view.content(), b.data());
    QCOMPARE(a->parentItem(), b.data());
    QCOMPARE(view.scene()->items().size(), 2);
}

void tst_KELContentViewReentry::dyingContentIsNotHandedOut()
{
    KELContentView view;
    KELRoundRectControl *old = newControl();
    KELRoundRectControl *child = newControl(old);
    view.setContent(old);
    int asked = 0;
    connect(child, &QObject::destroyed, &view, [&] {
        ++asked;
        QCOMPARE(view.content(), nullptr);
    });
    delete old;
    QCOMPARE(asked, 1);
}

void tst_KELContentViewReentry::controlDeletedOnItsWayOutOfTheScene()
{
    KELContentView view;
    KELRoundRectControl *root = newControl();
    const ControlPointer child = newControl(root);
    view.setContent(root);
    connect(child, &QGraphicsObject::parentChanged, &view, [&] { child->deleteLater(); });
    view.setContent(child);
    QCOMPARE(view.content(), child.data());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!child);
    QCOMPARE(view.content(), nullptr);
}

void tst_KELContentViewReentry::controlReplacedOnItsWayOutOfTheScene()
{
    KELContentView view;
    KELRoundRectControl *root = newControl();
    const ControlPointer child = newControl(root);
    const ControlPointer other = newControl();
    view.setContent(root);
    connect(child, &QGraphicsObject::parentChanged, &view, [&] { view.setContent(other); });
    view.setContent(child);
    QVERIFY(!child);
    QCOMPARE(view.content(), other.data());
    QCOMPARE(view.scene()->items(), QList<QGraphicsItem *>({other.data()}));
}

KEL_TEST_MAIN(tst_KELContentViewReentry)
#include "tst_kelcontentviewreentry.moc"
