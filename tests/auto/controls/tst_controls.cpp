// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "controlclasses.h"
#include "controltest.h"
#include "record.h"
#include "rows.h"

#include <algorithm>
#include <iterator>
#include <memory>

namespace {

using Maker = KELRoundRectControl *(*)();

template <typename Control>
KELRoundRectControl *make(bool pixmap, bool glyph, bool caption, bool foreground)
{
    auto *control = new Control;
    KELRoundRectControlStyle *style = control->style();
    if (pixmap) {
        style->pixmap = QPixmap(40, 30);
        style->pixmap.fill(Qt::magenta);
    }
    if (glyph)
        style->icon = KELIconFont('M');
    if (caption)
        style->text = u"Start all of the pumps now"_s;
    if (!foreground)
        style->foregroundBrush = QBrush(Qt::NoBrush);
    return control;
}

template <typename Control>
KELRoundRectControl *makeAtHalf()
{
    auto *control = new Control;
    control->setValue(50);
    return control;
}

KELRoundRectControl *makeTable(bool pixmap, bool caption)
{
    KELRoundRectControl *table = make<KELNavigationTable>(pixmap, true, caption, true);
    static_cast<KELNavigationTableStyle *>(table->style())->showTitle = caption;
    return table;
}

struct ControlClass
{
    QByteArray name;
    const QMetaObject *meta;
    Maker make;
    // A pixmap is placed at whole pixels of the item: it may leave a rectangle that is not by one
    // of them.
    bool hasPixmap;
    // How far beyond its rectangle it paints, in item px: an outline that is not inset, and parts
    // of fixed size in a control smaller than they are.
    qreal reachPx = 0;
    qreal tinyReachPx = 0;
    bool isCutToItsShape = meta->inherits(&KELPushButton::staticMetaObject);
};

template <typename Control>
constexpr const QMetaObject *meta = &Control::staticMetaObject;

// Layouts of a class, where there is more than a picture and a caption, and what paints beyond its
// rectangle.
const ControlClass specialClasses[] = {
    {"push button, pixmap above caption", meta<KELPushButton>,
     [] { return make<KELPushButton>(true, false, true, true); }, true},
    {"push button, pixmap alone", meta<KELPushButton>,
     [] { return make<KELPushButton>(true, false, true, false); }, true},
    {"push button, glyph above caption", meta<KELPushButton>,
     [] { return make<KELPushButton>(false, true, true, true); }, false},
    {"push button, glyph alone", meta<KELPushButton>,
     [] { return make<KELPushButton>(false, true, false, true); }, false},
    {"push button, caption alone", meta<KELPushButton>,
     [] { return make<KELPushButton>(false, false, true, true); }, false},
    {"push button, nothing inside", meta<KELPushButton>,
     [] { return make<KELPushButton>(false, false, false, false); }, false},
    {"check box", meta<KELCheckBox>, [] { return make<KELCheckBox>(true, true, true, true); },
     false, 1, 27},
    {"radio box", meta<KELRadioBox>, [] { return make<KELRadioBox>(true, true, true, true); },
     false, 0, 13.5},
    {"progress bar", meta<KELProcessBar>, makeAtHalf<KELProcessBar>, false, 0, 15},
    {"slide control", meta<KELSlideControl>, makeAtHalf<KELSlideControl>, false, 1, 31},
    {"navigation table, pixmap", meta<KELNavigationTable>, [] { return makeTable(true, false); },
     true},
    {"navigation table, title", meta<KELNavigationTable>, [] { return makeTable(false, true); },
     false, 0, 35},
};

// A line is not where its rectangle is, and neither are the tabs of a navigation table. A combo box
// paints nothing itself; its parts are of the other classes.
const QMetaObject *const leftOut[] = {meta<KELLineItem>, meta<KELNavigationTableItem>,
                                      meta<KELComboBox>};

// The special ones, and three layouts of each other control.
const std::vector<ControlClass> &controlClasses()
{
    static const std::vector<ControlClass> classes = [] {
        std::vector<ControlClass> all(std::begin(specialClasses), std::end(specialClasses));
        forEachControl([&all](auto tag) {
            using Control = typename decltype(tag)::Type;
            const auto isThis = [](const ControlClass &special) {
                return special.meta == meta<Control>;
            };
            if (std::any_of(std::begin(specialClasses), std::end(specialClasses), isThis)
                || std::count(std::begin(leftOut), std::end(leftOut), meta<Control>) > 0)
                return;
            const QByteArray name(meta<Control>->className());
            all.push_back({name + ", all at once", meta<Control>,
                           [] { return make<Control>(true, true, true, true); }, true});
            all.push_back({name + ", caption", meta<Control>,
                           [] { return make<Control>(false, false, true, true); }, false});
            all.push_back({name + ", glyph", meta<Control>,
                           [] { return make<Control>(false, true, false, true); }, false});
        });
        return all;
    }();
    return classes;
}

struct State
{
    const char *name;
    bool pressed;
    bool checked;
    bool disabled;
};

const std::vector<State> states = {
    {"at rest", false, false, false},
    {"pressed", true, false, false},
    {"checked", false, true, false},
    {"checked and pressed", true, true, false},
    {"disabled", false, false, true},
    {"disabled and pressed", true, false, true},
    {"disabled and checked", false, true, true},
    {"disabled, checked and pressed", true, true, true},
};

constexpr qreal scales[] = {0.5, 1, 1.5, 2};
constexpr QSizeF tinySizes[] = {{1, 1}, {3, 200}, {200, 3}, {0, 0}};

// A picture whose margins are wider than the control has an area without size, in which Qt draws a
// pixmap and a glyph in their own size.
void removePicture(KELRoundRectControl *control)
{
    control->style()->pixmap = QPixmap();
    control->style()->icon.setIcon(QChar());
}

// How far outside its rectangle Qt draws the outline, in item px: a pen thinner than a pixel of the
// picture is drawn as one pixel.
qreal thinOutline(const KELRoundRectControl &control, qreal scale)
{
    const qreal width = qreal(control.style()->borderWidth) * scale;
    return width > 0 && width < 1 ? 0.5 / scale : 0;
}

std::unique_ptr<KELRoundRectControl> makeControl(const ControlClass &controlClass,
                                                 const State &state)
{
    std::unique_ptr<KELRoundRectControl> control(controlClass.make());
    control->setCheck(state.checked);
    control->style()->isMouseDown = state.pressed;
    control->setEnabled(!state.disabled);
    return control;
}

// What is outside the rectangle of the control, widened by slack, with the control and without it.
// The corner of the rectangle may fall between the pixels of the picture.
QImage outsideOf(KELRoundRectControl *control, bool isPainted, qreal scale = 1, qreal slack = 0)
{
    constexpr qreal marginPx = 100;
    const QRectF bounds = control->boundingRect();
    const QSizeF size = bounds.size() + QSizeF(2 * marginPx, 2 * marginPx);
    const QPointF whole(qFloor(bounds.x()), qFloor(bounds.y()));
    const QPointF shift = QPointF(marginPx, marginPx) - whole;
    const QRectF kept = bounds.translated(shift).adjusted(-slack, -slack, slack, slack);
    const QRect allowed = QRectF(kept.topLeft() * scale, kept.size() * scale).toAlignedRect();
    QImage image = KelImage::draw(size.toSize(), scale, [&](QPainter *painter) {
        painter->translate(shift);
        if (isPainted)
            control->paint(painter, nullptr);
    });
    QPainter(&image).fillRect(allowed, Qt::white);
    return image;
}

// Says what a control changes outside that reaches so far beyond its rectangle.
QString changesOutside(KELRoundRectControl *control, qreal reachPx)
{
    QString changes;
    for (const qreal scale : scales) {
        const qreal slack = qMax(reachPx, thinOutline(*control, scale));
        changes += KelImage::difference(outsideOf(control, true, scale, slack),
                                        outsideOf(control, false, scale, slack));
    }
    return changes;
}

void addClassesAndStates()
{
    addRows({{"class", namesOf(controlClasses())}, {"state", namesOf(states)}});
}

void addClassesAndStates(bool withPartsOfFixedSize)
{
    addRows({{"class", namesOf(controlClasses())}, {"state", namesOf(states)}},
            [=](const std::vector<int> &row) {
                return withPartsOfFixedSize
                    == (controlClasses().at(size_t(row[0])).tinyReachPx > 0);
            });
}

} // namespace

class tst_Controls : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void everyControlHasAParentItem()
    {
        forEachControl(
            [](auto tag) { ControlTest::hasAParentItem<typename decltype(tag)::Type>(); });
    }

    void everyControlPaintsSomething_data() { addClassesAndStates(); }

    void everyControlPaintsSomething()
    {
        const auto item = control();
        item->setboundRect(10, 10, 120, 80);
        const QSize size(140, 100);
        QVERIFY(KelImage::paint(item.get(), size) != KelImage::blank(size));
    }

    void paintsNothingOutside_data() { addClassesAndStates(); }

    void paintsNothingOutside()
    {
        const auto item = control();
        for (const QSizeF &size : {QSizeF(120, 80), QSizeF(60, 50)}) {
            item->setboundRect(QRectF(QPointF(100, 100), size));
            QCOMPARE(changesOutside(item.get(), controlClass().reachPx), QString());
        }
    }

    void paintsNothingOutsideAtFractions_data() { addClassesAndStates(); }

    void paintsNothingOutsideAtFractions()
    {
        const auto item = control();
        const qreal reachPx = qMax<qreal>(controlClass().reachPx, controlClass().hasPixmap ? 1 : 0);
        for (const QRectF &rect : {QRectF(3.5, 7.25, 80, 60), QRectF(-0.3, -0.7, 80.6, 60.4)}) {
            item->setboundRect(rect);
            QCOMPARE(changesOutside(item.get(), reachPx), QString());
        }
    }

    void paintsNothingOutsideWhenTiny_data() { addClassesAndStates(false); }

    void paintsNothingOutsideWhenTiny()
    {
        const auto item = control();
        item->style()->borderBrush = QBrush(Qt::NoBrush);
        removePicture(item.get());
        for (const QSizeF &size : tinySizes) {
            item->setboundRect(QRectF(QPointF(10, 10), size));
            for (const qreal scale : scales)
                QCOMPARE(KelImage::pixelsOutside(item.get(), scale), QString());
        }
    }

    void partsOfFixedSizeGoOutsideATinyControl_data() { addClassesAndStates(true); }

    void partsOfFixedSizeGoOutsideATinyControl()
    {
        const auto item = control();
        item->setboundRect(10, 10, 1, 1);
        QVERIFY(outsideOf(item.get(), true) != outsideOf(item.get(), false));
        for (const QSizeF &size : tinySizes) {
            item->setboundRect(QRectF(QPointF(10, 10), size));
            QCOMPARE(changesOutside(item.get(), controlClass().tinyReachPx), QString());
        }
    }

    void sceneCutsOffWhatIsOutside_data() { addClassesAndStates(); }

    void sceneCutsOffWhatIsOutside()
    {
        const auto item = control();
        QCOMPARE(item->flags().testFlag(QGraphicsItem::ItemClipsToShape),
                 controlClass().isCutToItsShape);
        if (!controlClass().isCutToItsShape)
            return;
        const QSize pictureSize(120, 120);
        for (const QSizeF &size : {QSizeF(1, 1), QSizeF(3, 80), QSizeF(80, 3), QSizeF(20, 20)}) {
            item->setboundRect(QRectF(QPointF(20, 20), size));
            const auto draw = [&](bool withControl) {
                QGraphicsScene scene;
                scene.addItem(item.get());
                item->setVisible(withControl);
                QImage image = KelImage::draw(pictureSize, 1, [&](QPainter *painter) {
                    scene.render(painter, QRectF(QPointF(), pictureSize),
                                 QRectF(QPointF(), pictureSize));
                });
                scene.removeItem(item.get());
                QPainter(&image).fillRect(item->boundingRect().toAlignedRect(), Qt::white);
                return image;
            };
            QCOMPARE(KelImage::difference(draw(true), draw(false)), QString());
        }
    }

    void outlineWiderThanTheControlGoesOutside_data() { addClassesAndStates(); }

    void outlineWiderThanTheControlGoesOutside()
    {
        const auto item = control();
        removePicture(item.get());
        item->style()->borderWidth = 2;
        for (const QSizeF &size : {QSizeF(1, 1), QSizeF(1, 40), QSizeF(40, 1)}) {
            item->setboundRect(QRectF(QPointF(10, 10), size));
            QCOMPARE(changesOutside(item.get(), qMax(1.0, controlClass().tinyReachPx)), QString());
        }
    }

    void oddGeometryDrawsNothing_data() { ControlTest::addOddRectangles(); }

    void oddGeometryDrawsNothing()
    {
        const auto rect = fetch<QRectF>("rect");
        const QImage blank = KelImage::blank(QSize(140, 100));
        for (const ControlClass &one : controlClasses()) {
            for (const State &state : states) {
                const auto item = makeControl(one, state);
                item->setboundRect(rect);
                QVERIFY2(KelImage::paint(item.get(), blank.size()) == blank, one.name);
                item->setboundRect(rect.x(), rect.y(), rect.width(), rect.height());
                QVERIFY2(KelImage::paint(item.get(), blank.size()) == blank, one.name);
            }
        }
    }

    void oddRectangleOfTheRecordDrawsNothing_data() { ControlTest::addOddRectangles(); }

    // Parts that were placed before are still where they were.
    void oddRectangleOfTheRecordDrawsNothing()
    {
        const QImage blank = KelImage::blank(QSize(140, 100));
        for (const ControlClass &one : controlClasses()) {
            const auto item = makeControl(one, states.front());
            item->setboundRect(10, 10, 120, 80);
            item->style()->boundRect = fetch<QRectF>("rect");
            bool isClipped = false;
            const QImage image = KelImage::draw(blank.size(), 1, [&](QPainter *painter) {
                item->paint(painter, nullptr);
                isClipped = painter->hasClipping();
            });
            QVERIFY2(image == blank, one.name);
            QVERIFY2(!isClipped, one.name);
        }
    }

    void paintsTheSameTwice_data() { addClassesAndStates(); }

    void paintsTheSameTwice()
    {
        const auto item = control();
        item->setboundRect(10, 10, 120, 80);
        const QSize size(140, 100);
        const QImage first = KelImage::paint(item.get(), size);
        QCOMPARE(KelImage::difference(KelImage::paint(item.get(), size), first), QString());
    }

    void paintingLeavesTheRecordAlone_data() { addClassesAndStates(); }

    void paintingLeavesTheRecordAlone()
    {
        const auto item = control();
        const KELRoundRectControlStyle before = *item->style();
        KelImage::paint(item.get(), QSize(140, 100));
        QCOMPARE(Record::difference(*item->style(), before), QString());
    }

    void roundCornersStayInside_data() { addClassesAndStates(); }

    void roundCornersStayInside()
    {
        const auto item = control();
        KELRoundRectControlStyle *style = item->style();
        style->xRadius = 300;
        style->yRadius = 14;
        style->borderWidth = 9;
        style->textFlags = Qt::AlignRight | Qt::AlignTop;
        style->font.setPixelSize(60);
        style->iconSize = 150;
        item->setboundRect(5, 5, 120, 100);
        for (const qreal scale : scales)
            QCOMPARE(KelImage::pixelsOutside(item.get(), scale), QString());
    }

private:
    static const ControlClass &controlClass()
    {
        return controlClasses().at(fetch<size_t>("class"));
    }
    static std::unique_ptr<KELRoundRectControl> control()
    {
        return makeControl(controlClass(), states.at(fetch<size_t>("state")));
    }
};

KEL_TEST_MAIN(tst_Controls)
#include "tst_controls.moc"
