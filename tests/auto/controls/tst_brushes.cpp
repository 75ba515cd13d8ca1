// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "controlclasses.h"
#include "keltest.h"
#include "rows.h"

#include <QtGui/QPainter>

#include <limits>
#include <map>

namespace {

using Painted = std::function<QImage(const QBrush &)>;

constexpr qreal notANumber = std::numeric_limits<qreal>::quiet_NaN();
constexpr qreal infinite = std::numeric_limits<qreal>::infinity();
constexpr QSize canvas(140, 90);

QBrush coloured(QGradient gradient)
{
    gradient.setColorAt(0, Qt::red);
    gradient.setColorAt(1, Qt::blue);
    return gradient;
}

QBrush linear()
{
    return coloured(QLinearGradient(0, 0, 100, 50));
}

QBrush radial()
{
    return coloured(QRadialGradient(30, 20, 40));
}

QBrush conical()
{
    return coloured(QConicalGradient(30, 20, 45));
}

QBrush transformed(QBrush brush, const QTransform &transform)
{
    brush.setTransform(transform);
    return brush;
}

QBrush stoppedAt(qreal position)
{
    QRadialGradient gradient(30, 20, 40);
    gradient.setStops({{0, Qt::red}, {position, Qt::green}, {1, Qt::blue}});
    return gradient;
}

template <typename Control>
constexpr bool hasValue
    = std::is_same_v<Control, KELProcessBar> || std::is_same_v<Control, KELSlideControl>;

// Paints a control with a brush in this field of its record.
template <typename Control, typename Style = KELRoundRectControlStyle>
Painted painted(QBrush Style::*field, bool check = true)
{
    return [field, check](const QBrush &brush) {
        Control control(nullptr);
        // The radio box puts its brushes back in its own style().
        KELRoundRectControlStyle *const style = control.KELRoundRectControl::style();
        control.setboundRect(5, 5, 120, 70);
        style->text = u"Caption"_s;
        style->icon = KELIconFont('M');
        style->borderWidth = 3;
        style->isCheck = check;
        static_cast<Style *>(style)->*field = brush;
        if constexpr (hasValue<Control>)
            control.setValue(50);
        return KelImage::paint(&control, canvas);
    };
}

// The same in the record of a table, or in those of its pages.
template <typename Style>
Painted paintedTable(QBrush Style::*field)
{
    return [field](const QBrush &brush) {
        KELNavigationTable table;
        table.setboundRect(0, 0, 140, 90);
        auto *const style = static_cast<KELNavigationTableStyle *>(table.style());
        style->showTitle = true;
        style->titleHeight = 25;
        style->tabHeight = 40;
        if constexpr (std::is_same_v<Style, KELNavigationTableStyle>)
            style->*field = brush;
        for (int i = 0; i < 2; ++i) {
            auto *const page = new KELNavigationTableItem;
            page->setText(u"Tab"_s);
            page->style()->icon = KELIconFont('M');
            page->style()->iconSize = 10;
            if constexpr (std::is_same_v<Style, KELNavigationTableItemStyle>)
                static_cast<Style *>(page->style())->*field = brush;
            table.addItem(page);
        }
        return KelImage::paint(&table, canvas);
    };
}

QImage paintedLine(const QBrush &brush)
{
    KELLineItem line;
    line.setLine(QPointF(5, 5), QPointF(120, 70));
    line.style()->borderWidth = 3;
    line.style()->borderBrush = brush;
    return KelImage::paint(&line, canvas);
}

QImage paintedText(const QBrush &brush)
{
    return KELTextPixmap(u"Caption"_s, canvas, brush, QBrush(Qt::white), QFont()).toImage();
}

struct Place
{
    QByteArray name;
    Painted paint;
};

// Where a brush shows.
const std::vector<Place> &places()
{
    using Style = KELRoundRectControlStyle;
    using Table = KELNavigationTableStyle;
    using Page = KELNavigationTableItemStyle;
    static const std::vector<Place> all = {
        {"base, fill", painted<KELRoundRectControl>(&Style::backgroundBrush)},
        {"base, outline", painted<KELRoundRectControl>(&Style::borderBrush)},
        {"base, caption and glyph", painted<KELRoundRectControl>(&Style::foregroundBrush)},
        {"push button, fill", painted<KELPushButton>(&Style::backgroundBrush)},
        {"push button, outline", painted<KELPushButton>(&Style::borderBrush)},
        {"push button, caption and glyph", painted<KELPushButton>(&Style::foregroundBrush)},
        {"combo box entry, fill", painted<KELComboBoxItem>(&Style::backgroundBrush)},
        {"combo box entry, caption and glyph", painted<KELComboBoxItem>(&Style::foregroundBrush)},
        {"label, fill", painted<KELLabel>(&Style::backgroundBrush)},
        {"label, caption and glyph", painted<KELLabel>(&Style::foregroundBrush)},
        {"line", paintedLine},
        {"check box, track", painted<KELCheckBox>(&Style::backgroundBrush, false)},
        {"check box, knob", painted<KELCheckBox>(&KELCheckBoxStyle::indicatorBrush, false)},
        {"check box, outline", painted<KELCheckBox>(&Style::borderBrush)},
        {"radio box, fill", painted<KELRadioBox>(&Style::backgroundBrush)},
        {"radio box, outline", painted<KELRadioBox>(&Style::borderBrush)},
        {"radio box, dot", painted<KELRadioBox>(&Style::foregroundBrush)},
        {"progress bar, bar", painted<KELProcessBar>(&Style::backgroundBrush)},
        {"progress bar, done", painted<KELProcessBar>(&Style::borderBrush)},
        {"progress bar, number", painted<KELProcessBar>(&Style::foregroundBrush)},
        {"slider, groove", painted<KELSlideControl>(&Style::backgroundBrush)},
        {"slider, knob", painted<KELSlideControl>(&Style::foregroundBrush)},
        {"slider, outline", painted<KELSlideControl>(&Style::borderBrush)},
        {"table, background", paintedTable<Table>(&Table::backgroundBrush)},
        {"table, title bar", paintedTable<Table>(&Table::titleBackgroundBrush)},
        {"table, title", paintedTable<Table>(&Table::titleForegroundBrush)},
        {"table, tab", paintedTable<Page>(&Page::backgroundBrush)},
        {"table, tab of the page shown", paintedTable<Page>(&Page::buttonBackground)},
        {"table, caption and glyph of a tab", paintedTable<Page>(&Page::buttonForeground)},
        {"text pixmap", paintedText},
    };
    return all;
}

// These, and all brushes of all controls, whether they show or not.
const std::vector<Place> &allPlaces()
{
    static const std::vector<Place> all = [] {
        using Style = KELRoundRectControlStyle;
        std::vector<Place> found = places();
        forEachControl([&found](auto tag) {
            using Control = typename decltype(tag)::Type;
            const QByteArray name(Control::staticMetaObject.className());
            found.push_back({"background of a " + name, painted<Control>(&Style::backgroundBrush)});
            found.push_back({"foreground of a " + name, painted<Control>(&Style::foregroundBrush)});
            found.push_back({"outline of a " + name, painted<Control>(&Style::borderBrush)});
        });
        return found;
    }();
    return all;
}

struct NamedBrush
{
    QByteArray name;
    QBrush brush;
};

QBrush focused(const QPointF &centre, qreal radius, const QPointF &focus, qreal focalRadius = 0)
{
    return coloured(QRadialGradient(centre, radius, focus, focalRadius));
}

// A number in each place of a gradient and its transformation.
std::vector<NamedBrush> brushesWith(const QByteArray &name, qreal n)
{
    return {
        {"linear, x of start " + name, coloured(QLinearGradient(n, 0, 100, 50))},
        {"linear, y of start " + name, coloured(QLinearGradient(0, n, 100, 50))},
        {"linear, x of stop " + name, coloured(QLinearGradient(0, 0, n, 50))},
        {"linear, y of stop " + name, coloured(QLinearGradient(0, 0, 100, n))},
        {"radial, x of centre " + name, coloured(QRadialGradient(n, 20, 40))},
        {"radial, y of centre " + name, coloured(QRadialGradient(30, n, 40))},
        {"radial, centre without focal point " + name, focused({n, 20}, 40, {30, 20})},
        {"radial, radius " + name, coloured(QRadialGradient(30, 20, n))},
        {"radial, x of focal point " + name, focused({30, 20}, 40, {n, 20}, 5)},
        {"radial, y of focal point " + name, focused({30, 20}, 40, {30, n}, 5)},
        {"radial, focal radius " + name, focused({30, 20}, 40, {30, 20}, n)},
        {"conical, x of centre " + name, coloured(QConicalGradient(n, 20, 45))},
        {"conical, y of centre " + name, coloured(QConicalGradient(30, n, 45))},
        {"conical, angle " + name, coloured(QConicalGradient(30, 20, n))},
        {"linear, moved " + name, transformed(linear(), {1, 0, 0, 1, n, 0})},
        {"radial, moved " + name, transformed(radial(), {1, 0, 0, 1, n, 0})},
        {"conical, moved " + name, transformed(conical(), {1, 0, 0, 1, n, 0})},
        {"radial, scaled " + name, transformed(radial(), {n, 0, 0, 1, 0, 0})},
        {"radial, sheared " + name, transformed(radial(), {1, n, 0, 1, 0, 0})},
        {"radial, in perspective " + name, transformed(radial(), {1, 0, n, 0, 1, 0, 0, 0, 1})},
        {"radial, moved in y " + name, transformed(radial(), {1, 0, 0, 1, 0, n})},
        {"radial, scaled in y " + name, transformed(radial(), {1, 0, 0, n, 0, 0})},
        {"radial, sheared in y " + name, transformed(radial(), {1, 0, n, 1, 0, 0})},
        {"radial, in perspective in y " + name, transformed(radial(), {1, 0, 0, 0, 1, n, 0, 0, 1})},
        {"radial, last number " + name, transformed(radial(), {1, 0, 0, 0, 1, 0, 0, 0, n})},
    };
}

const std::vector<NamedBrush> &unusable()
{
    static const std::vector<NamedBrush> all = [] {
        std::vector<NamedBrush> found = {
            {"stop at no number", stoppedAt(notANumber)},
            {"scaled by 0", transformed(radial(), QTransform::fromScale(0, 1))},
            {"scaled by a tiny number", transformed(radial(), QTransform::fromScale(1e-160, 1))},
            {"scaled by a small number", transformed(radial(), QTransform::fromScale(9e-6, 1))},
            {"circles that touch", focused({0, 0}, 50, {30, 0}, 20)},
            {"circles that nearly touch", focused({0, 0}, 50, {30 - 1e-9, 0}, 20)},
            {"negative radius", focused({0, 1.7e-6}, -100000, {-100000, 0})},
            {"all 0", transformed(radial(), {0, 0, 0, 0, 0, 0, 0, 0, 0})},
        };
        const std::map<QByteArray, qreal> numbers = {{"not a number", notANumber},
                                                     {"infinite", infinite},
                                                     {"minus infinite", -infinite},
                                                     {"1e308", 1e308},
                                                     {"-1e308", -1e308},
                                                     {"1e12", 1e12},
                                                     {"just beyond", 100000.1},
                                                     {"just beyond, negative", -100000.1}};
        for (const auto &[name, number] : numbers) {
            const std::vector<NamedBrush> more = brushesWith(name, number);
            found.insert(found.end(), more.begin(), more.end());
        }
        return found;
    }();
    return all;
}

const std::vector<NamedBrush> &usable()
{
    static const std::vector<NamedBrush> all = {
        {"linear", linear()},
        {"radial", radial()},
        {"conical", conical()},
        {"at the limit", focused({-100000, 100000}, 100000, {-99000, 99000}, 10)},
        {"circles near each other", focused({0, 0}, 50, {29.99, 0}, 20)},
        {"without size", coloured(QRadialGradient(30, 20, 0))},
        {"transformed", transformed(radial(), QTransform().rotate(30).scale(2, 0.5))},
        {"in perspective", transformed(linear(), {1, 0, 0.001, 0, 1, 0, 0, 0, 1})},
        {"scaled far down", transformed(radial(), QTransform::fromScale(1.1e-5, 1))},
        {"stops at the ends", stoppedAt(1)},
        {"preset", QBrush(QGradient(QGradient::WarmFlame))},
    };
    return all;
}

} // namespace

// What brushes of a style record paint, and that those do nothing with which Qt would crash.
class tst_Brushes : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void unusableGradientPaintsNothing_data() { addRows({{"brush", namesOf(unusable())}}); }

    void unusableGradientPaintsNothing()
    {
        const auto paint = [](const QBrush &background, const QTransform &transform) {
            KELRoundRectControl control;
            control.setboundRect(5, 5, 60, 30);
            control.style()->backgroundBrush = background;
            control.style()->borderBrush = QBrush(Qt::NoBrush);
            return KelImage::draw(canvas, 1, [&](QPainter *painter) {
                painter->setTransform(transform, true);
                control.paint(painter, nullptr);
            });
        };
        const QBrush &brush = unusable().at(fetch<size_t>("brush")).brush;
        for (const QTransform &transform :
             {QTransform(), QTransform::fromScale(2, 2), QTransform().rotate(30)}) {
            QCOMPARE(KelImage::difference(paint(brush, transform), paint(Qt::NoBrush, transform)),
                     QString());
        }
    }

    void unusableInEveryPlace_data() { addRows({{"place", namesOf(allPlaces())}}); }

    void unusableInEveryPlace()
    {
        const Painted &paint = allPlaces().at(fetch<size_t>("place")).paint;
        const QImage nothing = paint(QColor(0, 0, 0, 0));
        for (const QBrush &brush : {coloured(QRadialGradient(notANumber, 20, 40)),
                                    coloured(QRadialGradient(30, 20, 1e308)),
                                    coloured(QLinearGradient(infinite, 0, 100, 0))})
            QCOMPARE(KelImage::difference(paint(brush), nothing), QString());
    }

    void usableGradientPaints_data() { addRows({{"brush", namesOf(usable())}}); }

    void usableGradientPaints()
    {
        const QBrush &brush = usable().at(fetch<size_t>("brush")).brush;
        KELRoundRectControl control;
        control.setboundRect(5, 5, 60, 30);
        control.style()->backgroundBrush = brush;
        control.style()->borderBrush = QBrush(Qt::NoBrush);
        const QImage expected = KelImage::draw(canvas, 1, [&](QPainter *painter) {
            painter->setRenderHint(QPainter::Antialiasing);
            painter->setPen(Qt::NoPen);
            painter->setBrush(brush);
            painter->drawRoundedRect(QRectF(5, 5, 60, 30), 0, 0);
        });
        QCOMPARE(KelImage::difference(KelImage::paint(&control, canvas), expected), QString());
        QVERIFY(expected != KelImage::blank(canvas));
    }

    void usableInEveryPlace_data() { addRows({{"place", namesOf(places())}}); }

    void usableInEveryPlace()
    {
        const Painted &paint = places().at(fetch<size_t>("place")).paint;
        QVERIFY(paint(radial()) != paint(QColor(0, 0, 0, 0)));
    }
};

KEL_TEST_MAIN(tst_Brushes)
#include "tst_brushes.moc"
