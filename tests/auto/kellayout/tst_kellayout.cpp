// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "layoutcontrols.h"
#include "signallog.h"

#include <kelpart.h>
#include <keltouch.h>

#include <QtWidgets/QGraphicsAnchorLayout>

#include <limits>

namespace {

enum class Way { Across, Down, Grid, Anchors };

const std::vector<Named> ways{{"across", int(Way::Across)},
                              {"down", int(Way::Down)},
                              {"grid", int(Way::Grid)},
                              {"anchors", int(Way::Anchors)}};
const std::vector<Named> directions{{"left to right", Qt::LeftToRight},
                                    {"right to left", Qt::RightToLeft}};

constexpr qreal notANumber = std::numeric_limits<qreal>::quiet_NaN();

// The control, then a button.
QGraphicsLayout *newLayout(Way way, KELRoundRectControl *control, KELPushButton *button)
{
    if (way == Way::Across || way == Way::Down) {
        auto *linear = new QGraphicsLinearLayout(way == Way::Across ? Qt::Horizontal
                                                                    : Qt::Vertical);
        KELLayout::add(linear, control);
        KELLayout::add(linear, button, 1);
        return linear;
    }
    if (way == Way::Grid) {
        auto *grid = new QGraphicsGridLayout;
        KELLayout::add(grid, control, 0, 0);
        KELLayout::add(grid, button, 0, 1);
        return grid;
    }
    auto *anchors = new QGraphicsAnchorLayout;
    QGraphicsLayoutItem *first = KELLayout::item(control);
    QGraphicsLayoutItem *second = KELLayout::item(button);
    anchors->addCornerAnchors(anchors, Qt::TopLeftCorner, first, Qt::TopLeftCorner);
    anchors->addAnchor(first, Qt::AnchorRight, second, Qt::AnchorLeft);
    anchors->addAnchor(second, Qt::AnchorRight, anchors, Qt::AnchorRight);
    anchors->addAnchor(second, Qt::AnchorTop, anchors, Qt::AnchorTop);
    return anchors;
}

// A widget of a size, with a layout.
struct Screen
{
    explicit Screen(QGraphicsLayout *layout, const QSizeF &size = QSizeF(400, 300))
    {
        widget.setLayout(layout);
        widget.resize(size);
        layout->activate();
    }

    QGraphicsWidget widget;
};

QSizeF sizeOf(KELRoundRectControl *control, Qt::SizeHint which)
{
    return KELLayout::item(control)->effectiveSizeHint(which);
}

qreal knobLeft(KELSlideControl *slider)
{
    // A press one px inside the knob takes hold of it and changes nothing.
    const QRectF rect = slider->boundingRect();
    const float range = slider->maximun() - slider->minimun();
    return rect.x() + qreal((slider->value() - slider->minimun()) / range) * (rect.width() - 30);
}

} // namespace

class tst_KELLayout : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void aControlIsWhereTheLayoutPutsIt_data()
    {
        addRows({{"kind", kinds}, {"way", ways}, {"direction", directions}});
    }

    void aControlIsWhereTheLayoutPutsIt()
    {
        KELRoundRectControl *control = newControl(fetch<Kind>("kind"));
        auto *button = new KELPushButton;
        Screen screen(newLayout(fetch<Way>("way"), control, button));
        const auto direction = fetch<Qt::LayoutDirection>("direction");
        screen.widget.setLayoutDirection(direction);
        screen.widget.layout()->activate();
        const QRectF geometry = sceneGeometry(control);
        QCOMPARE(control->parentItem(), &screen.widget);
        QVERIFY(screen.widget.rect().contains(geometry));
        QCOMPARE(geometry, QRectF(geometry.toRect()));
        QVERIFY(geometry.contains(sceneBounds(control)));
        const qreal slack = fetch<Kind>("kind") == Kind::Slider
                || fetch<Kind>("kind") == Kind::Check
            ? 1
            : 0;
        QCOMPARE(sceneBounds(control), geometry.adjusted(slack, 0, -slack, 0));
        if (fetch<Way>("way") != Way::Down)
            QCOMPARE(geometry.x() < sceneBounds(button).x(), direction == Qt::LeftToRight);
        else
            QVERIFY(geometry.bottom() <= sceneBounds(button).top());
    }

    void aMirroredLayoutIsTheMirrorImage_data() { addRows({{"kind", kinds}, {"way", ways}}); }

    void aMirroredLayoutIsTheMirrorImage()
    {
        KELRoundRectControl *control = newControl(fetch<Kind>("kind"));
        Screen screen(newLayout(fetch<Way>("way"), control, new KELPushButton));
        const QRectF before = sceneGeometry(control);
        screen.widget.setLayoutDirection(Qt::RightToLeft);
        screen.widget.layout()->activate();
        const QRectF after = sceneGeometry(control);
        QCOMPARE(after.size(), before.size());
        QVERIFY(qAbs(400 - after.right() - before.left()) <= 1); // whole px
        QCOMPARE(after.top(), before.top());
    }

    void aControlFollowsTheScreen_data() { addRows({{"kind", kinds}, {"way", ways}}); }

    void aControlFollowsTheScreen()
    {
        KELRoundRectControl *control = newControl(fetch<Kind>("kind"));
        Screen screen(newLayout(fetch<Way>("way"), control, new KELPushButton));
        for (const QSizeF &size : {QSizeF(800, 480), QSizeF(480, 800), QSizeF(400, 300)}) {
            screen.widget.resize(size);
            const QRectF bounds = sceneBounds(control);
            QVERIFY(sceneGeometry(control).contains(bounds));
            QVERIFY(screen.widget.rect().contains(bounds));
        }
    }

    // Sizes: by the table of the reference.

    void aTargetHasTheLeastTouchSize_data() { addRows({{"kind", kinds}}); }

    void aTargetHasTheLeastTouchSize()
    {
        const QScopedPointer<KELRoundRectControl> control(newControl(fetch<Kind>("kind")));
        const qreal before = KELTouch::pixelsPerMillimetre();
        KELTouch::setPixelsPerMillimetre(10); // 90 px
        const QSizeF least = sizeOf(control.data(), Qt::MinimumSize);
        const bool isTarget = control->flags() & QGraphicsItem::ItemIsSelectable;
        const bool isWide = fetch<Kind>("kind") == Kind::Combo;
        KELTouch::setPixelsPerMillimetre(before);
        QCOMPARE(least.width() >= 90 && least.height() >= 90, isTarget || isWide);
    }

    void aHintIsThatOfTheTable()
    {
        KELTouch::setLeastMillimetres(0);
        KELCheckBox check;
        QCOMPARE(sizeOf(&check, Qt::PreferredSize), QSizeF(82, 32));
        KELRadioBox radio;
        QCOMPARE(sizeOf(&radio, Qt::PreferredSize), QSizeF(27, 27));
        KELSlideControl slider;
        QCOMPARE(sizeOf(&slider, Qt::MinimumSize), QSizeF(64, 32));
        QCOMPARE(sizeOf(&slider, Qt::PreferredSize), QSizeF(128, 32));
        KELProcessBar bar;
        QCOMPARE(sizeOf(&bar, Qt::PreferredSize).height(), 30.0);
        const QScopedPointer<KELRoundRectControl> line(newControl(Kind::Line));
        QCOMPARE(sizeOf(line.data(), Qt::PreferredSize), QSizeF(3, 3));
        const QScopedPointer<KELRoundRectControl> upright(newControl(Kind::Upright));
        QCOMPARE(sizeOf(upright.data(), Qt::PreferredSize), QSizeF(3, 3));
        const QScopedPointer<KELRoundRectControl> table(newTable());
        QCOMPARE(sizeOf(table.data(), Qt::PreferredSize), QSizeF(0, 80));
        KELTouch::setLeastMillimetres(9);
        const qreal touch = KELTouch::leastSize();
        QCOMPARE(sizeOf(table.data(), Qt::PreferredSize).isValid(), true);
        KELLayout::updateHints(table.data());
        QCOMPARE(sizeOf(table.data(), Qt::MinimumSize), QSizeF(2 * touch, 80 + touch));
    }

    void aPictureAndACaptionMakeTheSizeOfAButton()
    {
        KELTouch::setLeastMillimetres(0);
        KELPushButton button;
        auto *style = static_cast<KELPushButtonStyle *>(button.style());
        style->margins = QMarginsF(4, 3, 2, 1);
        const qreal line = QFontMetricsF(style->font).height();
        QPixmap pixmap(100, 60);
        pixmap.setDevicePixelRatio(2);
        style->pixmap = pixmap;
        // The strip: a line, twice the margin above, once the margin below.
        QCOMPARE(sizeOf(&button, Qt::PreferredSize),
                 QSizeF(50 + 10 + 4, std::ceil(30 + 2 + line + 3 + 3 + 1 + 4)));
        style->pixmap = QPixmap();
        style->icon = KELIconFont(u'A');
        KELLayout::updateHints(&button);
        QCOMPARE(sizeOf(&button, Qt::PreferredSize), QSizeF(30 + 10 + 4, 30 + 2 + 4));
        button.setText(u"Caption of a button"_s);
        KELLayout::updateHints(&button);
        const qreal text = QFontMetricsF(style->font).horizontalAdvance(button.text());
        QCOMPARE(sizeOf(&button, Qt::PreferredSize),
                 QSizeF(std::ceil(text + 6 + 4), std::ceil(30 + 2 + line + 3 + 3 + 1 + 4)));
        KELTouch::setLeastMillimetres(9);
    }

    void aCaptionIsShownInFullAtThePreferredSize_data()
    {
        addRows({{"kind", {{"button", int(Kind::Button)}, {"label", int(Kind::Label)}}},
                 {"px", {{"9 px", 9}, {"16 px", 16}, {"33 px", 33}, {"84 px", 84}}}});
    }

    void aCaptionIsShownInFullAtThePreferredSize()
    {
        const QScopedPointer<KELRoundRectControl> control(newControl(fetch<Kind>("kind")));
        control->style()->margins = QMarginsF(0.5, 1, 2, 3);
        control->style()->font.setPixelSize(fetch<int>("px"));
        for (const QString &text :
             {u"i"_s, u"WWW"_s, u"23.5 °C"_s, u"Save & close"_s, u"Two\nlines of text"_s}) {
            control->setText(text);
            KELLayout::updateHints(control.data());
            const QSizeF size = sizeOf(control.data(), Qt::PreferredSize);
            const QSizeF least = sizeOf(control.data(), Qt::MinimumSize);
            const KELRoundRectControlStyle &style = *control->style();
            QCOMPARE(style.getTrimmingText(text, size.width() - 2.5, style.font), text);
            const qreal height = QFontMetricsF(style.font).size(0, text).height();
            QVERIFY(size.height() >= height + 4);
            QVERIFY(least.height() >= height + 4);
            QVERIFY(least.width() <= size.width());
        }
    }

    void aComboBoxHasRoomForItsLongestEntry()
    {
        KELComboBox comboBox;
        comboBox.addItem(0, u"short"_s);
        const qreal before = sizeOf(&comboBox, Qt::PreferredSize).width();
        comboBox.addItem(1, u"a much longer entry than the other"_s);
        KELLayout::updateHints(&comboBox);
        const qreal after = sizeOf(&comboBox, Qt::PreferredSize).width();
        const qreal text = QFontMetricsF(QFont()).horizontalAdvance(
            u"a much longer entry than the other"_s);
        QVERIFY(before < after);
        QVERIFY(after >= text + 30);
        QCOMPARE(sizeOf(&comboBox, Qt::MinimumSize).width(), qMax(80.0, KELTouch::leastSize()));
    }

    void aCaptionThatWrapsHasAHeightForItsWidth()
    {
        auto *label = new KELLabel;
        label->style()->trimText = false;
        label->setText(u"A sentence that is long enough for more than one line of the label."_s);
        QGraphicsLayoutItem *adapter = KELLayout::item(label);
        QSizePolicy policy = adapter->sizePolicy();
        policy.setHeightForWidth(true);
        adapter->setSizePolicy(policy);
        auto *layout = new QGraphicsLinearLayout(Qt::Vertical);
        KELLayout::add(layout, label);
        layout->addStretch(1);
        const Screen screen(layout, QSizeF(120, 400));
        const qreal line = QFontMetricsF(label->style()->font).height();
        QVERIFY(adapter->geometry().width() <= 120);
        QVERIFY(adapter->geometry().height() >= 3 * line);
    }

    void badNumbersInARecordCountAsNothing()
    {
        KELPushButton button;
        KELLabel label;
        for (KELRoundRectControl *control :
             {(KELRoundRectControl *)&button, (KELRoundRectControl *)&label}) {
            control->style()->margins = QMarginsF(notANumber, -5, notANumber, -7);
            control->style()->borderWidth = std::numeric_limits<float>::quiet_NaN();
            control->style()->iconSize = -30;
            control->style()->icon = KELIconFont(u'A');
            const QSizeF size = sizeOf(control, Qt::PreferredSize);
            QVERIFY(size.width() >= 0 && size.width() < 200);
            QVERIFY(size.height() >= 0 && size.height() < 200);
        }
        KELRadioBox radio;
        radio.KELRoundRectControl::style()->borderWidth = std::numeric_limits<float>::infinity();
        QVERIFY(qIsFinite(sizeOf(&radio, Qt::PreferredSize).width()));
    }

    void aNewCaptionCountsAfterUpdateHints()
    {
        auto *label = new KELLabel;
        auto *layout = new QGraphicsLinearLayout;
        KELLayout::add(layout, label);
        KELLayout::add(layout, new KELPushButton, 1);
        Screen screen(layout);
        const qreal before = sceneGeometry(label).width();
        label->setText(u"A caption that is rather longer"_s);
        layout->activate();
        QCOMPARE(sceneGeometry(label).width(), before);
        KELLayout::updateHints(&screen.widget);
        QCoreApplication::sendPostedEvents();
        QVERIFY(sceneGeometry(label).width() > before + 50);
    }

    void sizesOfTheApplicationWin()
    {
        auto *label = new KELLabel;
        KELLayout::item(label)->setPreferredWidth(123);
        KELLayout::item(label)->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
        auto *layout = new QGraphicsLinearLayout;
        KELLayout::add(layout, label);
        const Screen screen(layout);
        QCOMPARE(sceneGeometry(label).width(), 123.0);
    }

    void aHiddenControlTakesNoRoom()
    {
        auto *first = new KELPushButton;
        auto *second = new KELPushButton;
        auto *layout = new QGraphicsLinearLayout;
        layout->setContentsMargins(0, 0, 0, 0);
        KELLayout::add(layout, first);
        KELLayout::add(layout, second);
        first->hide();
        const Screen screen(layout);
        QCOMPARE(sceneGeometry(second).left(), 0.0);
    }

    // Classes.

    void aSliderKeepsItsValueAndShowsItThere_data()
    {
        addRows({{"minimum", {{"from 0", 0}, {"from 20", 20}, {"from -50", -50}}},
                 {"step", {{"no step", 0}, {"step", 7}}}});
    }

    void aSliderKeepsItsValueAndShowsItThere()
    {
        auto *slider = new KELSlideControl;
        slider->setMinimun(float(fetch<int>("minimum")));
        slider->setMaximun(130);
        slider->setStep(float(fetch<int>("step")));
        slider->setValue(42);
        const float value = slider->value();
        SignalLog log;
        log.listenTo(slider);
        auto *layout = new QGraphicsLinearLayout;
        KELLayout::add(layout, slider);
        Screen screen(layout);
        screen.widget.resize(333, 200);
        QCOMPARE(log.take(), QString());
        QCOMPARE(slider->value(), value);
        QCOMPARE(slider->step(), float(fetch<int>("step")));

        KELSlideControl alone; // placed as its own reference says
        alone.setMinimun(slider->minimun());
        alone.setMaximun(slider->maximun());
        alone.setboundRect(slider->boundingRect().x(), 0, slider->rect().width(),
                           slider->rect().height());
        alone.setValue(value);
        const QSize size = slider->rect().size().toSize() + QSize(10, 10);
        QCOMPARE(KelImage::difference(KelImage::paint(slider, size), KelImage::paint(&alone, size)),
                 QString());
    }

    void aValueOutsideTheBoundsIsKept()
    {
        auto *slider = new KELSlideControl;
        slider->setValue(90);
        slider->setMaximun(50);
        slider->setValue(90);
        slider->setMaximun(40);
        slider->setMaximun(30); // limits the value to the bound before
        auto *layout = new QGraphicsLinearLayout;
        KELLayout::add(layout, slider);
        const Screen screen(layout);
        QCOMPARE(slider->value(), 40.0F);
        const QRect ink = KelImage::inkOf(KelImage::paint(slider, QSize(500, 100)));
        QVERIFY(ink.right() <= slider->boundingRect().right() + 1);
        QVERIFY(knobLeft(slider) > slider->boundingRect().right() - 30);
    }

    void equalBoundsAreLeftAlone()
    {
        auto *slider = new KELSlideControl;
        slider->setMaximun(0);
        auto *layout = new QGraphicsLinearLayout;
        KELLayout::add(layout, slider);
        const Screen screen(layout);
        QCOMPARE(slider->value(), 0.0F);
        QVERIFY(sceneGeometry(slider).contains(sceneBounds(slider)));
    }

    void theEntriesOfAComboBoxAreAsWideAsTheBox()
    {
        auto *comboBox = static_cast<KELComboBox *>(newComboBox());
        auto *layout = new QGraphicsLinearLayout;
        KELLayout::add(layout, comboBox);
        Screen screen(layout);
        for (const qreal width : {300, 500, 200}) {
            screen.widget.resize(width, 100);
            const qreal expected = sceneGeometry(comboBox).width() - 1;
            const QList<KELComboBoxItem *> entries = comboBox->items();
            for (int i = 0; i < entries.size(); ++i)
                QCOMPARE(entries.at(i)->style()->boundRect, QRectF(0.5, 30 * i, expected, 30));
        }
        comboBox->addItem(3, u"later"_s);
        QCOMPARE(comboBox->items().constLast()->rect().width(), comboBox->rect().width() - 1);
        QCOMPARE(comboBox->selectIndex(), 1);
    }

    void pagesAndTabsFollowTheirTable()
    {
        auto *table = static_cast<KELNavigationTable *>(newTable());
        auto *style = static_cast<KELNavigationTableStyle *>(table->style());
        style->showTitle = true;
        table->setSelectIndex(1);
        auto *layout = new QGraphicsLinearLayout;
        layout->setContentsMargins(0, 0, 0, 0);
        KELLayout::add(layout, table);
        Screen screen(layout);
        screen.widget.resize(600, 400);
        QCOMPARE(table->selectIndex(), 1);
        QCOMPARE(table->selectItem()->style()->boundRect, QRectF(0, 35, 600, 400 - 35 - 80));
        KELNavigationTable alone;
        static_cast<KELNavigationTableStyle *>(alone.style())->showTitle = true;
        alone.setboundRect(0, 0, 600, 400);
        for (const QString &name : {u"One"_s, u"Two"_s}) {
            auto *page = new KELNavigationTableItem;
            page->setText(name);
            alone.addItem(page);
        }
        alone.setSelectIndex(1);
        QCOMPARE(KelImage::difference(KelImage::paint(table, QSize(600, 400)),
                                      KelImage::paint(&alone, QSize(600, 400))),
                 QString());
    }

    void aTableWithoutAPageShownStaysSo()
    {
        auto *table = static_cast<KELNavigationTable *>(newTable());
        delete table->selectItem();
        auto *layout = new QGraphicsLinearLayout;
        KELLayout::add(layout, table);
        const Screen screen(layout);
        QCOMPARE(table->selectIndex(), -1);
    }

    // Helpers.

    void cellsHaveTheSameSize()
    {
        auto *grid = new QGraphicsGridLayout;
        auto *display = new KELLabel;
        KELLayout::add(grid, display, 0, 0, 1, 4);
        QVector<KELPushButton *> keys;
        for (const QString &caption :
             {u"1"_s, u"2"_s, u"MC"_s, u"/"_s, u"i"_s, u"CE"_s, u"="_s, u"x"_s, u"sqrt"_s}) {
            auto *key = new KELPushButton;
            key->setText(caption);
            KELLayout::addCell(grid, key, 4);
            keys.append(key);
        }
        const Screen screen(grid, QSizeF(480, 400));
        QCOMPARE(grid->itemAt(1, 0), KELLayout::item(keys.at(0)));
        QCOMPARE(grid->itemAt(3, 0), KELLayout::item(keys.at(8)));
        for (const KELPushButton *key : keys) {
            QVERIFY(qAbs(key->rect().width() - keys.at(0)->rect().width()) <= 1);
            QVERIFY(qAbs(key->rect().height() - keys.at(0)->rect().height()) <= 1);
        }
        QVERIFY(display->rect().width() > 4 * keys.at(0)->rect().width());
    }

    void aRowIsACaptionAndAControl()
    {
        auto *grid = new QGraphicsGridLayout;
        const KELLabel *heading = KELLayout::addRow(grid, u"Climate"_s, nullptr);
        auto *box = new KELCheckBox;
        KELLabel *label = KELLayout::addRow(grid, u"Heating"_s, box);
        const Screen screen(grid);
        QCOMPARE(label->text(), u"Heating"_s);
        QCOMPARE(heading->rect().width(), sceneGeometry(box).right() - sceneGeometry(label).left());
        QVERIFY(sceneGeometry(label).right() <= sceneGeometry(box).left());
        QCOMPARE(sceneGeometry(label).center().y(), sceneGeometry(box).center().y());
    }

    void partsAndControlsShareALayout()
    {
        auto *layout = new QGraphicsLinearLayout(Qt::Vertical);
        auto *part = new KELPart;
        auto *button = new KELPushButton;
        layout->addItem(part);
        KELLayout::add(layout, button);
        const Screen screen(layout);
        QVERIFY(part->geometry().bottom() <= sceneBounds(button).top());
    }

    // Bad input.

    void nothingHappensToNull()
    {
        QGraphicsLinearLayout linear;
        QGraphicsGridLayout grid;
        KELPushButton button;
        QVERIFY(!KELLayout::item(nullptr));
        KELLayout::add(static_cast<QGraphicsLinearLayout *>(nullptr), &button);
        KELLayout::add(&linear, nullptr);
        KELLayout::add(static_cast<QGraphicsGridLayout *>(nullptr), &button, 0, 0);
        KELLayout::add(&grid, nullptr, 0, 0);
        KELLayout::addCell(nullptr, &button, 4);
        KELLayout::addCell(&grid, nullptr, 4);
        QVERIFY(!KELLayout::addRow(nullptr, u"row"_s, &button));
        QVERIFY(!KELLayout::setLayout(nullptr, nullptr));
        KELLayout::updateHints(nullptr);
        QCOMPARE(linear.count() + grid.count(), 0);
        QVERIFY(button.childItems().isEmpty());
    }

    void aPlaceThatIsNoneIsIgnored()
    {
        QGraphicsGridLayout grid;
        KELPushButton button;
        KELLayout::add(&grid, &button, -1, 0);
        KELLayout::add(&grid, &button, 0, -1);
        KELLayout::add(&grid, &button, 0, 0, 0, 1);
        KELLayout::add(&grid, &button, 0, 0, 1, -2);
        KELLayout::addCell(&grid, &button, 0);
        QCOMPARE(grid.count(), 0);
        QGraphicsLinearLayout linear;
        KELLayout::add(&linear, &button, -3);
        QCOMPARE(linear.stretchFactor(KELLayout::item(&button)), 0);
    }

    void aGeometryThatIsNoneIsIgnored()
    {
        KELPushButton button;
        QGraphicsLayoutItem *adapter = KELLayout::item(&button);
        adapter->setGeometry(QRectF(10, 20, 200, 100));
        const qreal infinity = std::numeric_limits<qreal>::infinity();
        for (const QRectF &rect : {QRectF(notANumber, 0, 1, 1), QRectF(0, notANumber, 1, 1),
                                   QRectF(0, 0, notANumber, 1), QRectF(0, 0, 1, infinity)})
            adapter->setGeometry(rect);
        QCOMPARE(adapter->geometry(), QRectF(10, 20, 200, 100));
        QCOMPARE(sceneBounds(&button), QRectF(10, 20, 200, 100));
    }

    // Lifetime.

    void aControlHasOneAdapter()
    {
        auto *button = new KELPushButton;
        QGraphicsLayoutItem *adapter = KELLayout::item(button);
        auto *first = new QGraphicsLinearLayout;
        auto *second = new QGraphicsLinearLayout;
        KELLayout::add(first, button);
        const Screen a(first);
        KELLayout::add(second, button);
        const Screen b(second);
        QCOMPARE(KELLayout::item(button), adapter);
        QCOMPARE(first->count(), 0);
        QCOMPARE(second->count(), 1);
        KELLayout::add(second, button);
        QCOMPARE(second->count(), 1);
        QCOMPARE(button->parentItem(), &b.widget);
    }

    void aControlThatDiesLeavesItsLayout_data()
    {
        addRows({{"kind", kinds}, {"way", ways}, {"later", {{"now", 0}, {"later", 1}}}});
    }

    void aControlThatDiesLeavesItsLayout()
    {
        KELRoundRectControl *control = newControl(fetch<Kind>("kind"));
        auto *button = new KELPushButton;
        QGraphicsLayout *layout = newLayout(fetch<Way>("way"), control, button);
        Screen screen(layout);
        // Slots of what dies with it, and of itself, activate the layout.
        const auto activate = [layout] {
            layout->invalidate();
            layout->activate();
        };
        connect(control, &QObject::destroyed, this, activate);
        auto *child = new KELLabel(control);
        connect(child, &QObject::destroyed, this, activate);
        if (fetch<bool>("later"))
            control->deleteLater();
        else
            delete control;
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(layout->count(), 1);
        screen.widget.resize(500, 400);
        QVERIFY(screen.widget.rect().contains(sceneBounds(button)));
    }

    void aLayoutThatDiesLeavesTheControls_data() { addRows({{"kind", kinds}, {"way", ways}}); }

    void aLayoutThatDiesLeavesTheControls()
    {
        const QPointer<KELRoundRectControl> control(newControl(fetch<Kind>("kind")));
        auto *button = new KELPushButton;
        Screen screen(newLayout(fetch<Way>("way"), control, button));
        const QRectF bounds = sceneBounds(control);
        screen.widget.setLayout(nullptr);
        QVERIFY(control);
        QCOMPARE(sceneBounds(control), bounds);
        QCOMPARE(control->parentItem(), &screen.widget);
        control->setZValue(1); // a combo box had its adapter listen
        auto *next = new QGraphicsLinearLayout;
        KELLayout::add(next, control);
        screen.widget.setLayout(next);
        QCOMPARE(next->count(), 1);
    }

    void aControlTakenOutKeepsItsAdapter()
    {
        auto *button = new KELPushButton;
        auto *layout = new QGraphicsLinearLayout;
        KELLayout::add(layout, button);
        const Screen screen(layout);
        QGraphicsLayoutItem *adapter = KELLayout::item(button);
        layout->removeItem(adapter);
        QCOMPARE(KELLayout::item(button), adapter);
        QVERIFY(!adapter->parentLayoutItem());
    }

    void aComboBoxWithoutALayoutIsLeftAlone()
    {
        auto *comboBox = static_cast<KELComboBox *>(newComboBox());
        comboBox->setboundRect(20, 30, 200, 40);
        auto *layout = new QGraphicsLinearLayout;
        QGraphicsLayoutItem *adapter = KELLayout::item(comboBox);
        comboBox->setZValue(1); // as it opens
        QCOMPARE(sceneBounds(comboBox), QRectF(20, 30, 200, 40));
        KELLayout::add(layout, comboBox);
        const Screen screen(layout);
        layout->removeItem(adapter);
        comboBox->setboundRect(5, 6, 200, 40);
        comboBox->setZValue(0);
        QCOMPARE(sceneBounds(comboBox), QRectF(5, 6, 200, 40));
    }

    void aScreenDiesWithItsControls()
    {
        QPointer<KELRoundRectControl> control(newControl(Kind::Combo));
        {
            const Screen screen(newLayout(Way::Grid, control, new KELPushButton));
        }
        QVERIFY(!control);
    }
};

KEL_TEST_MAIN(tst_KELLayout)
#include "tst_kellayout.moc"
