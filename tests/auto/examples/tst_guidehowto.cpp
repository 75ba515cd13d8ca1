// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "hand.h"
#include "howtosamples.h"
#include "keltest.h"

#include <KELCheckBox>
#include <KELIconFont>
#include <KELLabel>
#include <KELLayout>
#include <KELList>
#include <KELMotion>
#include <KELNonModalDialog>
#include <KELPicker>
#include <KELPinDialog>
#include <KELProcessBar>
#include <KELPushButton>
#include <KELRadioBox>
#include <KELRange>
#include <KELRow>
#include <KELScreen>
#include <KELTheme>
#include <KELTouch>
#include <QtCore/QStringListModel>
#include <QtGui/QPixmapCache>
#include <QtWidgets/QGraphicsGridLayout>
#include <QtWidgets/QMenu>

class Boiler : public QObject
{
    Q_OBJECT
    Q_PROPERTY(double celsius MEMBER m_celsius NOTIFY changed)

Q_SIGNALS:
    void changed();

private:
    double m_celsius = 21.5;
};

// The code of docs/guide/howto.md: each answer does what its question asks for.
class tst_GuideHowTo : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void screens()
    {
        KELScreen screen;
        QPointer<KELPage> first = new KELPage;
        QObject sensor;
        HowTo::watchAPage(first, &sensor);
        screen.push(first);
        HowTo::fillTheScreen(&screen);
        QVERIFY(screen.isFullScreen());
        QCOMPARE(sensor.property("on"), QVariant(true));
        HowTo::openAPage(&screen);
        QTRY_COMPARE(screen.pageCount(), 1);
        HowTo::letPagesSlide(&screen);
        QVERIFY(screen.isSlideEnabled());
        HowTo::stopAllMotion();
        QVERIFY(!KELMotion::isEnabled());
        KELMotion::setEnabled(true);
        HowTo::mirror(&screen);
        QCOMPARE(first->layoutDirection(), Qt::RightToLeft);
    }

    void layouts()
    {
        KELScreen screen;
        auto *page = new KELPage;
        screen.push(page);
        auto *label = new KELLabel;
        auto *button = new KELPushButton;
        HowTo::stackControls(page, label, button);
        HowTo::sizeAControl(button);
        page->layout()->activate();
        QVERIFY(button->rect().height() >= 80 && button->rect().width() <= 240);
        HowTo::growACaption(label);
        QCOMPARE(label->text(), "Outdoor temperature");

        QGraphicsWidget keypad;
        auto *grid = new QGraphicsGridLayout(&keypad);
        HowTo::makeKeys(grid);
        QCOMPARE(grid->count(), 9);
        QCOMPARE(grid->columnCount(), 3);

        KELRoundRectControl card;
        auto *caption = new KELLabel;
        HowTo::fillACard(&card, caption);
        QVERIFY(card.isAncestorOf(caption));

        QGraphicsScene scene;
        auto *placed = new KELPushButton;
        HowTo::placeByHand(&scene, placed);
        QCOMPARE(placed->boundingRect(), QRectF(20, 20, 200, 56));
    }

    void looks()
    {
        KELLabel label;
        HowTo::enlarge(&label);
        QCOMPARE(label.style()->font.pixelSize(), 34);
        HowTo::wrap(&label);
        QVERIFY(!label.style()->trimText);
        HowTo::alignACaption(&label);
        QCOMPARE(label.style()->textFlags, int(Qt::AlignLeft | Qt::AlignVCenter));
        HowTo::letThrough(&label);
        QCOMPARE(label.acceptedMouseButtons(), Qt::NoButton);
        KELPushButton button;
        HowTo::round(&button);
        QCOMPARE(button.style()->xRadius, 12.0);
        HowTo::showAPicture(&button, QPixmap(20, 10));
        QCOMPARE(button.style()->pixmap.size(), QSize(20, 10));
        HowTo::showAGlyph(&button, "no-such-font.ttf");
        QVERIFY(!button.style()->icon.isNull());
        QPointer<QMenu> menu = new QMenu;
        auto *withMenu = new KELPushButton;
        HowTo::openAMenu(withMenu, menu);
        delete withMenu;
        QTRY_VERIFY(!menu);
    }

    void buttons()
    {
        QObject pump;
        KELPushButton button;
        HowTo::reactToATap(&button, &pump);
        Q_EMIT button.mouseClicked();
        QCOMPARE(pump.property("on"), QVariant(true));
        HowTo::reactToAHold(&button, &pump);
        Q_EMIT button.mouseLongPress();
        QCOMPARE(pump.property("flush"), QVariant(true));
        HowTo::stayDown(&button);
        Q_EMIT button.mouseClicked();
        QVERIFY(button.isCheck());
        HowTo::chooseThePressedLook(&button);
        HowTo::disable(&button);
        QVERIFY(!button.isEnabled());
    }

    void values()
    {
        Boiler boiler;
        KELLabel label;
        KELRange range;
        KELProcessBar bar;
        HowTo::takeANumber(&range);
        HowTo::showAValue(&boiler, &label);
        HowTo::changeAValue(&boiler, &range);
        QCOMPARE(label.text(), QString::fromUtf8("21.5 °C"));
        range.setValue(19);
        QCOMPARE(label.text(), QString::fromUtf8("19.0 °C"));
        HowTo::showProgress(&bar);
        QCOMPARE(bar.value(), 42);
        KELCheckBox box;
        QObject pump;
        HowTo::readASwitch(&box, &pump);
        box.setCheck(true);
        QCOMPARE(pump.property("on"), QVariant(true));
    }

    void listsAndChoices()
    {
        QStringList names;
        for (int i = 0; i < 200; ++i)
            names.append(QString::number(i));
        QStringListModel model(names);
        KELScreen screen;
        auto *page = new KELPage;
        auto *list = new KELList(page);
        list->setGeometry(0, 0, 300, 200);
        HowTo::showRows(list, &model);
        screen.push(page);
        screen.show();
        QVERIFY(QTest::qWaitForWindowExposed(&screen));
        HowTo::scrollToARow(list);
        QVERIFY(list->position() > 0);
        QObject machine;
        HowTo::reactToARow(list, &machine);
        const QPointF row = list->mapToScene(list->rowRect(120).center());
        Hand(screen.viewport()).tap(screen.mapFromScene(row));
        QCOMPARE(machine.property("programme"), QVariant(120));

        KELPicker picker;
        HowTo::chooseFromMany(&picker, {"Zone 1", "Zone 2"});
        QCOMPARE(picker.currentText(), "Zone 1");
        KELRadioBoxGroup group;
        KELRadioBox slow;
        KELRadioBox fast;
        HowTo::chooseFromFew(&group, &slow, &fast);
        QVERIFY(slow.isCheck() && !fast.isCheck());
        KELRow setting;
        HowTo::makeASetting(&setting);
        QCOMPARE(setting.end(), KELRow::Switch);
    }

    void dialogs()
    {
        KELScreen screen;
        screen.push(new KELPage);
        screen.show();
        QVERIFY(QTest::qWaitForWindowExposed(&screen));
        HowTo::askForAPin(&screen);
        KELPinDialog *dialog = nullptr;
        const QList<QGraphicsItem *> items = screen.scene()->items();
        for (QGraphicsItem *item : items) {
            if (auto *found = dynamic_cast<KELPinDialog *>(item))
                dialog = found;
        }
        QVERIFY(dialog && dialog->isOpen());
        Q_EMIT dialog->entered("1234");
        QVERIFY(!dialog->isOpen());

        KELNonModalDialog panel;
        HowTo::showAPanel(&panel);
        QVERIFY(panel.isVisible());
        panel.hide();
    }

    void themes()
    {
        KELScreen screen;
        KELTheme theme;
        KELPushButton stop;
        HowTo::keepAColour(&stop);
        HowTo::darken(&theme, &screen);
        theme.applyTo(&stop);
        QCOMPARE(screen.scene()->backgroundBrush().color(), theme.color(KELTheme::Background));
        QCOMPARE(stop.style()->backgroundBrush.color(), QColor(0xc4, 0x2b, 0x2b));
        QSignalSpy failures(&theme, &KELTheme::failed);
        HowTo::useOwnColours(&theme);
        QCOMPARE(failures.count(), 1); // there is no such file here
    }

    void device()
    {
        const int limit = QPixmapCache::cacheLimit();
        HowTo::enlargeTargets();
        QCOMPARE(KELTouch::leastMillimetres(), 11.0);
        HowTo::keepPictures();
        QCOMPARE(QPixmapCache::cacheLimit(), 32 * 1024);
        KELTouch::setLeastMillimetres(9);
        QPixmapCache::setCacheLimit(limit);
    }
};

KEL_TEST_MAIN(tst_GuideHowTo)
#include "tst_guidehowto.moc"
