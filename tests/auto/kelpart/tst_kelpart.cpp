// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "hand.h"
#include "keltest.h"
#include "stage.h"

#include <kelpart.h>
#include <kelpushbutton.h>

namespace {

// Writes down what it is told.
class LoggingPart : public KELPart
{
public:
    using KELPart::isFocusShown;
    using KELPart::KELPart;

    QString take()
    {
        const QString taken = m_log.join(u' ');
        m_log.clear();
        return taken;
    }

protected:
    bool pressEvent(const QPointF & /*pos*/) override { return log(u"press"_s); }
    void dragEvent(const QPointF & /*pos*/, bool isDrag) override
    {
        log(isDrag ? u"drag"_s : u"move"_s);
    }
    void releaseEvent(const QPointF & /*pos*/, bool isTap) override
    {
        log(isTap ? u"tap"_s : u"release"_s);
    }
    void pressLostEvent() override { log(u"lost"_s); }

private:
    bool log(const QString &entry)
    {
        m_log.append(entry);
        return true;
    }

    QStringList m_log;
};

} // namespace

class tst_KELPart : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void aPressIsATapOrADrag_data() { addRows({{"input", inputs}}); }

    void aPressIsATapOrADrag()
    {
        KelTestView view;
        auto *part = new LoggingPart;
        part->setGeometry(50, 50, 200, 100);
        view.ownScene.addItem(part);
        Hand hand(&view, fetch<Input>("input"));
        hand.tap(QPoint(100, 100));
        QCOMPARE(part->take(), u"press tap"_s);
        hand.press(QPoint(100, 100));
        QVERIFY(part->isPressed());
        hand.move(QPoint(105, 105));
        hand.move(QPoint(106, 105));
        hand.release();
        QVERIFY(!part->isPressed());
        QCOMPARE(part->take(), u"press move drag release"_s);
    }

    void aHiddenPartLosesThePress()
    {
        KelTestView view;
        auto *part = new LoggingPart;
        part->setGeometry(50, 50, 200, 100);
        view.ownScene.addItem(part);
        Hand hand(&view);
        hand.press(QPoint(100, 100));
        part->hide();
        QVERIFY(!part->isPressed());
        QCOMPARE(part->take(), u"press"_s);
        hand.release();
        letEventsRun();
        QCOMPARE(part->take(), u"lost"_s);
    }

    void theFocusIsShownBesideControls_data()
    {
        addRows({{"reason",
                  {{"tab", Qt::TabFocusReason},
                   {"pointer", Qt::MouseFocusReason},
                   {"other", Qt::OtherFocusReason}}}});
    }

    void theFocusIsShownBesideControls()
    {
        KelTestView view;
        view.ownScene.addItem(new KELPushButton);
        auto *part = new LoggingPart;
        part->setFocusPolicy(Qt::StrongFocus);
        part->setGeometry(50, 50, 200, 100);
        view.ownScene.addItem(part);
        view.showOnce();
        const auto reason = fetch<Qt::FocusReason>("reason");
        part->setFocus(reason);
        QCOMPARE(part->isFocusShown(), reason == Qt::TabFocusReason);
        view.ownScene.setFocusItem(nullptr);
        QVERIFY(!part->isFocusShown());
        part->setFocus(Qt::PopupFocusReason); // comes back as it was
        QCOMPARE(part->isFocusShown(), reason == Qt::TabFocusReason);
    }

    void aCancelledTouchIsNoTap()
    {
        KelTestView view;
        auto *part = new LoggingPart;
        part->setGeometry(50, 50, 200, 100);
        view.ownScene.addItem(part);
        Hand hand(&view, Input::Touch);
        hand.press(QPoint(100, 100));
        hand.cancel();
        QVERIFY(!part->isPressed());
        letEventsRun();
        QCOMPARE(part->take(), u"press lost"_s);
        hand.tap(QPoint(100, 100));
        QCOMPARE(part->take(), u"press tap"_s);
    }
};

KEL_TEST_MAIN(tst_KELPart)
#include "tst_kelpart.moc"
