// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "controltest.h"

#include <kelpushbutton.h>

#include <QtWidgets/QGraphicsRectItem>
#include <QtWidgets/QGraphicsSceneMouseEvent>
#include <QtWidgets/QMenu>

#include <memory>

Q_DECLARE_METATYPE(Qt::MouseButton)

namespace {

const QColor pressedColour(50, 70, 100, 200);
const QColor disabledColour(150, 150, 150, 100);
const QColor restColour(0, 0, 0, 20);

KELPushButtonStyle *styleOf(const KELPushButton &button)
{
    return static_cast<KELPushButtonStyle *>(button.style());
}

// What the button shows now, from a fresh record as paint() makes it.
KELPushButtonStyle optionOf(const KELPushButton &button)
{
    KELPushButtonStyle option = KELPushButtonStyle();
    button.initStyleOption(&option, nullptr);
    return option;
}

class OpenButton : public KELPushButton
{
public:
    using KELPushButton::KELPushButton;
    using KELPushButton::sceneEventFilter;

    void makeStyleAgain() { m_style = initStyle(); }
};

// Accepts every button and counts what it gets.
class ChildItem : public QGraphicsRectItem
{
public:
    explicit ChildItem(QGraphicsItem *parent) : QGraphicsRectItem(0, 0, 20, 10, parent)
    {
        setFlag(ItemIsSelectable);
    }

    int events = 0;

protected:
    void mousePressEvent(QGraphicsSceneMouseEvent *event) override
    {
        ++events;
        event->accept();
    }
    void mouseReleaseEvent(QGraphicsSceneMouseEvent * /*event*/) override { ++events; }
    void mouseDoubleClickEvent(QGraphicsSceneMouseEvent * /*event*/) override { ++events; }
};

} // namespace

class tst_KELPushButton : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void recordHasTheDefaultsOfAButton()
    {
        const KELPushButton button;
        const KELPushButtonStyle &style = *styleOf(button);
        QCOMPARE(style.boundRect, QRectF(100, 100, 100, 30));
        QCOMPARE(style.backgroundBrush, QBrush(restColour));
        QCOMPARE(style.foregroundBrush, QBrush(Qt::black));
        QCOMPARE(style.borderBrush, QBrush(Qt::black));
        QCOMPARE(style.borderWidth, 2.0F);
        QCOMPARE(style.xRadius, 0.0);
        QCOMPARE(style.yRadius, 0.0);
        ControlTest::hasTheOtherDefaultsOfTheBase(style);
        QCOMPARE(style.iconMargins, QMarginsF(5, 1, 5, 1));
    }

    void recordStandsForTheBaseRecord()
    {
        QVERIFY((std::is_base_of_v<KELRoundRectControlStyle, KELPushButtonStyle>));
        QCOMPARE(KELPushButtonStyle().iconMargins, QMarginsF());
        QCOMPARE(sizeof(KELPushButtonStyle), sizeof(KELRoundRectControlStyle) + sizeof(QMarginsF));
    }

    void takesPointerInput()
    {
        const KELPushButton button;
        QVERIFY(button.filtersChildEvents());
        QVERIFY(button.handlesChildEvents());
        ControlTest::takesPointerInput<KELPushButton>(QGraphicsItem::ItemClipsToShape);
    }

    void hasAParentItem() { ControlTest::hasAParentItem<KELPushButton>(); }

    void declaresNoInterfaceOfItsOwn()
    {
        const QMetaObject &meta = KELPushButton::staticMetaObject;
        QCOMPARE(QByteArray(meta.className()), QByteArray("KELPushButton"));
        QCOMPARE(meta.superClass(), &KELRoundRectControl::staticMetaObject);
        QCOMPARE(meta.methodCount(), meta.methodOffset());
        QCOMPARE(meta.propertyCount(), meta.propertyOffset());
        QCOMPARE(meta.enumeratorCount(), meta.enumeratorOffset());
    }

    void initStyleCarriesTheLookOver()
    {
        OpenButton button;
        QMenu menu;
        KELPushButtonStyle *style = styleOf(button);
        style->boundRect = QRectF(1, 2, 3, 4);
        style->text = u"Start"_s;
        style->foregroundBrush = QBrush(Qt::green);
        style->borderBrush = QBrush(Qt::blue);
        style->margins = QMarginsF(1, 2, 3, 4);
        style->textFlags = Qt::AlignRight;
        style->trimText = false;
        style->iconSize = 12;
        style->xRadius = 5;
        style->contextMenu = &menu;
        style->backgroundBrush = QBrush(Qt::red);
        style->borderWidth = 7;
        style->iconMargins = QMarginsF(9, 9, 9, 9);
        style->isMouseDown = true;
        style->isCheck = true;

        button.makeStyleAgain();
        style = styleOf(button);
        QCOMPARE(style->boundRect, QRectF(1, 2, 3, 4));
        QCOMPARE(style->text, u"Start"_s);
        QCOMPARE(style->foregroundBrush, QBrush(Qt::green));
        QCOMPARE(style->borderBrush, QBrush(Qt::blue));
        QCOMPARE(style->margins, QMarginsF(1, 2, 3, 4));
        QCOMPARE(style->textFlags, int(Qt::AlignRight));
        QVERIFY(!style->trimText);
        QCOMPARE(style->iconSize, 12);
        QCOMPARE(style->xRadius, 5.0);
        QCOMPARE(style->contextMenu, &menu);
        QCOMPARE(style->backgroundBrush, QBrush(restColour));
        QCOMPARE(style->borderWidth, 2.0F);
        QCOMPARE(style->iconMargins, QMarginsF(5, 1, 5, 1));
        QVERIFY(!style->isMouseDown);
        QVERIFY(!style->isCheck);
        style->contextMenu = nullptr;
    }

    void optionIsACopyOfTheRecord()
    {
        KELPushButton button;
        KELPushButtonStyle *style = styleOf(button);
        QPixmap pixmap(4, 4);
        pixmap.fill(Qt::red);
        style->boundRect = QRectF(3, 4, 50, 60);
        style->text = u"Start"_s;
        style->foregroundBrush = QBrush(Qt::green);
        style->borderBrush = QBrush(Qt::blue);
        style->borderWidth = 3.5F;
        style->margins = QMarginsF(1, 2, 3, 4);
        style->textFlags = Qt::AlignRight;
        style->trimText = false;
        style->icon = KELIconFont('x');
        style->iconSize = 12;
        style->pixmap = pixmap;
        style->xRadius = 5;
        style->yRadius = 6;
        style->font.setPixelSize(33);
        style->iconMargins = QMarginsF(9, 8, 7, 6);

        const KELPushButtonStyle option = optionOf(button);
        QCOMPARE(option.boundRect, QRectF(3, 4, 50, 60));
        QCOMPARE(option.backgroundBrush, QBrush(restColour));
        QCOMPARE(option.foregroundBrush, QBrush(Qt::green));
        QCOMPARE(option.borderBrush, QBrush(Qt::blue));
        QCOMPARE(option.borderWidth, 3.5F);
        QCOMPARE(option.xRadius, 5.0);
        QCOMPARE(option.yRadius, 6.0);
        QCOMPARE(option.text, u"Start"_s);
        QCOMPARE(option.textFlags, int(Qt::AlignRight));
        QVERIFY(!option.trimText);
        QCOMPARE(option.font, style->font);
        QCOMPARE(option.margins, QMarginsF(1, 2, 3, 4));
        QCOMPARE(option.pixmap.cacheKey(), pixmap.cacheKey());
        QCOMPARE(option.icon.getIcon(), QChar('x'));
        QCOMPARE(option.iconSize, 12);
        QCOMPARE(option.iconMargins, QMarginsF(9, 8, 7, 6));
    }

    void optionTakesOverTheStates()
    {
        KELPushButton button;
        QVERIFY(!optionOf(button).isMouseDown);
        QVERIFY(!optionOf(button).isCheck);
        styleOf(button)->isMouseDown = true;
        QVERIFY(optionOf(button).isMouseDown);
        QVERIFY(!optionOf(button).isCheck);
        button.setCheck(true);
        QVERIFY(optionOf(button).isCheck);
        button.setEnabled(false);
        QVERIFY(optionOf(button).isCheck);
    }

    void optionLeavesOutWhatIsNotShown_data()
    {
        QTest::addColumn<QString>("what");

        for (const char *what : {"background", "border brush", "border width zero",
                                 "border width negative", "foreground", "empty text"})
            QTest::newRow(what) << QString::fromLatin1(what);
    }

    void optionLeavesOutWhatIsNotShown()
    {
        QFETCH(QString, what);
        KELPushButton button;
        KELPushButtonStyle *style = styleOf(button);
        style->text = u"Start"_s;
        if (what == QLatin1String("background")) {
            style->backgroundBrush = QBrush(Qt::red, Qt::NoBrush);
            QCOMPARE(optionOf(button).backgroundBrush, QBrush(Qt::NoBrush));
        } else if (what == QLatin1String("border brush")) {
            style->borderBrush = QBrush(Qt::red, Qt::NoBrush);
            QCOMPARE(optionOf(button).borderBrush, QBrush(Qt::NoBrush));
        } else if (what == QLatin1String("border width zero")) {
            style->borderWidth = 0;
            QCOMPARE(optionOf(button).borderBrush, QBrush(Qt::NoBrush));
        } else if (what == QLatin1String("border width negative")) {
            style->borderWidth = -1;
            QCOMPARE(optionOf(button).borderBrush, QBrush(Qt::NoBrush));
        } else if (what == QLatin1String("foreground")) {
            style->foregroundBrush = QBrush(Qt::red, Qt::NoBrush);
            QCOMPARE(optionOf(button).foregroundBrush, QBrush(Qt::NoBrush));
            QVERIFY(optionOf(button).text.isNull());
        } else {
            style->text = u""_s;
            QVERIFY(optionOf(button).text.isNull());
            QCOMPARE(optionOf(button).foregroundBrush, QBrush(Qt::black));
        }
        QVERIFY(optionOf(button).pixmap.isNull());
        QVERIFY(optionOf(button).icon.isNull());
    }

    void optionHasTheRectangleInTheScene()
    {
        KELRoundRectControl parent;
        parent.setboundRect(10, 20, 200, 100);
        auto *button = new KELPushButton(&parent);
        button->setboundRect(5, 5, 50, 30);
        QCOMPARE(optionOf(*button).boundRect, QRectF(15, 25, 50, 30));
    }

    void optionFillsFieldsWithoutInitialiser()
    {
        KELPushButton button;
        KELPushButtonStyle *style = styleOf(button);
        style->borderBrush = QBrush(Qt::NoBrush);
        style->textFlags = Qt::AlignBottom;
        KELPushButtonStyle option = KELPushButtonStyle();
        option.borderWidth = 99;
        option.textFlags = 99;
        option.trimText = false;
        button.initStyleOption(&option, nullptr);
        QCOMPARE(option.borderWidth, 0.0F);
        // A glyph without caption is placed by these flags.
        QCOMPARE(option.textFlags, int(Qt::AlignBottom));
        QVERIFY(option.trimText);
    }

    void pressedLook()
    {
        KELPushButton button;
        QCOMPARE(optionOf(button).backgroundBrush, QBrush(restColour));
        styleOf(button)->isMouseDown = true;
        const KELPushButtonStyle option = optionOf(button);
        QCOMPARE(option.backgroundBrush, QBrush(pressedColour));
        QCOMPARE(option.foregroundBrush, QBrush(Qt::black));
        QCOMPARE(option.borderBrush, QBrush(Qt::black));
        styleOf(button)->isMouseDown = false;
        QCOMPARE(optionOf(button).backgroundBrush, QBrush(restColour));
    }

    void disabledLook()
    {
        KELPushButton button;
        styleOf(button)->isMouseDown = true;
        button.setCheck(true);
        button.setIsCheckedTemplate([](KELPushButtonStyle &look) { look.xRadius = 9; });
        button.setEnabled(false);
        const KELPushButtonStyle option = optionOf(button);
        QCOMPARE(option.foregroundBrush, QBrush(disabledColour));
        QCOMPARE(option.borderBrush, QBrush(disabledColour));
        QCOMPARE(option.backgroundBrush, QBrush(restColour));
        QCOMPARE(option.xRadius, 0.0);
        button.setEnabled(true);
        QCOMPARE(optionOf(button).foregroundBrush, QBrush(Qt::black));
        QCOMPARE(optionOf(button).borderBrush, QBrush(Qt::black));
    }

    void checkedHasNoLookByDefault()
    {
        KELPushButton button;
        button.setCheck(true);
        QCOMPARE(optionOf(button).backgroundBrush, QBrush(restColour));
        QCOMPARE(optionOf(button).foregroundBrush, QBrush(Qt::black));
        QCOMPARE(optionOf(button).borderBrush, QBrush(Qt::black));
    }

    void stateLooks_data()
    {
        QTest::addColumn<bool>("enabled");
        QTest::addColumn<bool>("checked");
        QTest::addColumn<bool>("pressed");
        QTest::addColumn<QStringList>("looks");

        const QString isPressed = u"pressed"_s;
        const QString isChecked = u"checked"_s;
        const QString isDisabled = u"disabled"_s;
        QTest::newRow("at rest") << true << false << false << QStringList();
        QTest::newRow("pressed") << true << false << true << QStringList({isPressed});
        QTest::newRow("checked") << true << true << false << QStringList({isChecked});
        QTest::newRow("checked and pressed")
            << true << true << true << QStringList({isChecked, isPressed});
        QTest::newRow("disabled") << false << false << false << QStringList({isDisabled});
        QTest::newRow("disabled and pressed")
            << false << false << true << QStringList({isDisabled});
        QTest::newRow("disabled and checked")
            << false << true << false << QStringList({isDisabled});
        QTest::newRow("disabled, checked and pressed")
            << false << true << true << QStringList({isDisabled});
    }

    void stateLooks()
    {
        QFETCH(bool, enabled);
        QFETCH(bool, checked);
        QFETCH(bool, pressed);
        QFETCH(QStringList, looks);
        KELPushButton button;
        QStringList calls;
        button.setIsMouseDownTemplate([&](KELPushButtonStyle &) { calls.append(u"pressed"_s); });
        button.setIsCheckedTemplate([&](KELPushButtonStyle &) { calls.append(u"checked"_s); });
        button.setIsDisableTemplate([&](KELPushButtonStyle &) { calls.append(u"disabled"_s); });
        button.setEnabled(enabled);
        button.style()->isCheck = checked;
        button.style()->isMouseDown = pressed;
        optionOf(button);
        QCOMPARE(calls, looks);
        calls.clear();
        KelImage::paint(&button, QSize(220, 150));
        QCOMPARE(calls, looks);
    }

    void pressedLookWinsOverCheckedLook()
    {
        KELPushButton button;
        button.setIsCheckedTemplate([](KELPushButtonStyle &look) {
            look.backgroundBrush = QBrush(Qt::green);
            look.foregroundBrush = QBrush(Qt::yellow);
        });
        button.setCheck(true);
        QCOMPARE(optionOf(button).backgroundBrush, QBrush(Qt::green));
        styleOf(button)->isMouseDown = true;
        QCOMPARE(optionOf(button).backgroundBrush, QBrush(pressedColour));
        QCOMPARE(optionOf(button).foregroundBrush, QBrush(Qt::yellow));
    }

    void emptyLookChangesNothing()
    {
        KELPushButton button;
        button.setIsMouseDownTemplate(nullptr);
        button.setIsCheckedTemplate({});
        button.setIsDisableTemplate(std::function<void(KELPushButtonStyle &)>());
        styleOf(button)->isMouseDown = true;
        button.setCheck(true);
        QCOMPARE(optionOf(button).backgroundBrush, QBrush(restColour));
        button.setEnabled(false);
        QCOMPARE(optionOf(button).foregroundBrush, QBrush(Qt::black));
        QCOMPARE(optionOf(button).borderBrush, QBrush(Qt::black));
    }

    void lookIsACopyOfTheFunction()
    {
        KELPushButton button;
        std::function<void(KELPushButtonStyle &)> look = [](KELPushButtonStyle &option) {
            option.text = u"held"_s;
        };
        button.setIsMouseDownTemplate(look);
        look = nullptr;
        styleOf(button)->isMouseDown = true;
        QCOMPARE(optionOf(button).text, u"held"_s);
    }

    void lookDoesNotChangeTheRecord()
    {
        KELPushButton button;
        button.setIsMouseDownTemplate([](KELPushButtonStyle &look) {
            look.text = u"held"_s;
            look.borderWidth = 9;
            look.isCheck = true;
            look.iconMargins = QMarginsF();
        });
        styleOf(button)->isMouseDown = true;
        KelImage::paint(&button, QSize(220, 150));
        QVERIFY(button.text().isNull());
        QCOMPARE(styleOf(button)->borderWidth, 2.0F);
        QVERIFY(!button.isCheck());
        QCOMPARE(styleOf(button)->iconMargins, QMarginsF(5, 1, 5, 1));
    }

    void lookOfADisabledParent()
    {
        KELRoundRectControl parent;
        auto *button = new KELPushButton(&parent);
        parent.setEnabled(false);
        QCOMPARE(optionOf(*button).foregroundBrush, QBrush(disabledColour));
    }

    void lookNeedsARepaint()
    {
        int paints = 0;
        KelTestView view;
        auto *button = new KELPushButton;
        button->setCacheMode(QGraphicsItem::NoCache);
        button->setIsCheckedTemplate([&paints](KELPushButtonStyle &) { ++paints; });
        button->style()->isCheck = true;
        view.ownScene.addItem(button);
        QVERIFY(view.showAndWait());
        QTRY_VERIFY(paints > 0);
        QCoreApplication::processEvents();

        paints = 0;
        button->setIsCheckedTemplate([&paints](KELPushButtonStyle &) { ++paints; });
        button->setIsMouseDownTemplate(nullptr);
        button->setIsDisableTemplate(nullptr);
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
        QCOMPARE(paints, 0);
        button->update();
        QTRY_COMPARE(paints, 1);
    }

    void filterSwallowsOtherButtons_data()
    {
        QTest::addColumn<Qt::MouseButton>("mouseButton");
        QTest::addColumn<bool>("swallowed");

        QTest::newRow("left") << Qt::LeftButton << false;
        QTest::newRow("right") << Qt::RightButton << true;
        QTest::newRow("middle") << Qt::MiddleButton << true;
        QTest::newRow("back") << Qt::BackButton << true;
        QTest::newRow("none") << Qt::NoButton << true;
    }

    void filterSwallowsOtherButtons()
    {
        QFETCH(Qt::MouseButton, mouseButton);
        QFETCH(bool, swallowed);
        OpenButton button;
        for (const QEvent::Type type :
             {QEvent::GraphicsSceneMousePress, QEvent::GraphicsSceneMouseRelease,
              QEvent::GraphicsSceneMouseDoubleClick}) {
            QGraphicsSceneMouseEvent event(type);
            event.setButton(mouseButton);
            QCOMPARE(button.sceneEventFilter(&button, &event), swallowed);
            QCOMPARE(button.sceneEventFilter(nullptr, &event), swallowed);
        }
    }

    void filterPassesOtherEvents_data()
    {
        QTest::addColumn<int>("type");

        QTest::newRow("move") << int(QEvent::GraphicsSceneMouseMove);
        QTest::newRow("context menu") << int(QEvent::GraphicsSceneContextMenu);
        QTest::newRow("hover enter") << int(QEvent::GraphicsSceneHoverEnter);
        QTest::newRow("wheel") << int(QEvent::GraphicsSceneWheel);
        QTest::newRow("touch") << int(QEvent::TouchBegin);
        QTest::newRow("key") << int(QEvent::KeyPress);
        QTest::newRow("release of the mouse grab") << int(QEvent::UngrabMouse);
        QTest::newRow("mouse press of a widget") << int(QEvent::MouseButtonPress);
    }

    void filterPassesOtherEvents()
    {
        QFETCH(int, type);
        OpenButton button;
        if (type == QEvent::GraphicsSceneMouseMove) {
            QGraphicsSceneMouseEvent move(QEvent::GraphicsSceneMouseMove);
            move.setButton(Qt::RightButton);
            QVERIFY(!button.sceneEventFilter(&button, &move));
        }
        QEvent event{QEvent::Type(type)};
        QVERIFY(!button.sceneEventFilter(&button, &event));
    }

    void pressOnAChild_data()
    {
        QTest::addColumn<Qt::MouseButton>("mouseButton");
        QTest::addColumn<int>("clicks");

        QTest::newRow("left") << Qt::LeftButton << 1;
        QTest::newRow("right") << Qt::RightButton << 0;
        QTest::newRow("middle") << Qt::MiddleButton << 0;
    }

    void pressOnAChild()
    {
        QFETCH(Qt::MouseButton, mouseButton);
        QFETCH(int, clicks);
        KelTestView view;
        auto *below = new ChildItem(nullptr);
        below->setRect(0, 0, 300, 200);
        view.ownScene.addItem(below);
        auto *button = new KELPushButton;
        button->setboundRect(50, 60, 100, 40);
        auto *child = new ChildItem(button);
        child->setPos(90, 70);
        view.ownScene.addItem(button);
        QVERIFY(view.showAndWait());
        const QSignalSpy pressed(button, &KELRoundRectControl::mousePress);
        const QSignalSpy released(button, &KELRoundRectControl::mouseRelease);
        const QSignalSpy clicked(button, &KELRoundRectControl::mouseClicked);

        const QPoint pos = view.centreOf(child);
        view.press(pos, mouseButton);
        QCOMPARE(button->isMouseDown(), clicks == 1);
        view.release(pos, mouseButton);
        QCOMPARE(pressed.count(), clicks);
        QCOMPARE(released.count(), clicks);
        QCOMPARE(clicked.count(), clicks);
        if (clicks > 0)
            QCOMPARE(pressed.first().first().toPointF(), QPointF(100, 75));
        QCOMPARE(child->events, 0);
        QCOMPARE(below->events, 0);
        QVERIFY(!button->isMouseDown());
    }

    void doubleClickOnAChild_data()
    {
        QTest::addColumn<Qt::MouseButton>("mouseButton");
        QTest::addColumn<int>("doubleClicks");

        QTest::newRow("left") << Qt::LeftButton << 1;
        QTest::newRow("right") << Qt::RightButton << 0;
    }

    void doubleClickOnAChild()
    {
        QFETCH(Qt::MouseButton, mouseButton);
        QFETCH(int, doubleClicks);
        KelTestView view;
        auto *button = new KELPushButton;
        button->setboundRect(50, 60, 100, 40);
        auto *child = new ChildItem(button);
        child->setPos(90, 70);
        view.ownScene.addItem(button);
        QVERIFY(view.showAndWait());
        const QSignalSpy doubleClicked(button, &KELRoundRectControl::mouseDoubleClicked);
        const QSignalSpy clicked(button, &KELRoundRectControl::mouseClicked);

        QTest::mouseDClick(view.viewport(), mouseButton, Qt::NoModifier, view.centreOf(child));
        QCOMPARE(doubleClicked.count(), doubleClicks);
        view.release(view.centreOf(child), mouseButton);
        QCOMPARE(clicked.count(), doubleClicks);
        QCOMPARE(child->events, 0);
    }
};

KEL_TEST_MAIN(tst_KELPushButton)
#include "tst_kelpushbutton.moc"
