// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "controlclasses.h"
#include "keltest.h"

#include <QtGui/QPainter>
#include <QtWidgets/QStyleOptionGraphicsItem>

#include <functional>
#include <limits>
#include <memory>

Q_DECLARE_METATYPE(QBrush)
Q_DECLARE_METATYPE(std::function<QImage(QBrush)>)

namespace {

using Painted = std::function<QImage(QBrush)>;

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

using FieldOf = std::function<QBrush &(KELRoundRectControlStyle *)>;

QBrush &backgroundOf(KELRoundRectControlStyle *style)
{
    return style->backgroundBrush;
}

QBrush &foregroundOf(KELRoundRectControlStyle *style)
{
    return style->foregroundBrush;
}

QBrush &outlineOf(KELRoundRectControlStyle *style)
{
    return style->borderBrush;
}

QBrush &knobOf(KELRoundRectControlStyle *style)
{
    return static_cast<KELCheckBoxStyle *>(style)->indicatorBrush;
}

template <typename Control>
Painted painted(const FieldOf &field, bool check = true)
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
        field(style) = brush;
        return KelImage::paint(&control, canvas);
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

template <typename Control>
QImage paintedAtHalf(const FieldOf &field, const QBrush &brush)
{
    Control control(nullptr);
    control.setboundRect(5, 5, 120, 70);
    control.setValue(50);
    field(control.style()) = brush;
    return KelImage::paint(&control, canvas);
}

using TableField = std::function<QBrush &(KELNavigationTableStyle *)>;
using PageField = std::function<QBrush &(KELNavigationTableItemStyle *)>;

QImage paintedTable(const TableField &tableField, const PageField &pageField, const QBrush &brush)
{
    KELNavigationTable table;
    table.setboundRect(0, 0, 140, 90);
    auto *const style = static_cast<KELNavigationTableStyle *>(table.style());
    style->showTitle = true;
    style->titleHeight = 25;
    style->tabHeight = 40;
    if (tableField)
        tableField(style) = brush;
    for (int i = 0; i < 2; ++i) {
        auto *const page = new KELNavigationTableItem;
        page->setText(u"Tab"_s);
        page->style()->icon = KELIconFont('M');
        page->style()->iconSize = 10;
        if (pageField)
            pageField(static_cast<KELNavigationTableItemStyle *>(page->style())) = brush;
        table.addItem(page);
    }
    return KelImage::paint(&table, canvas);
}

QImage paintedText(const QBrush &brush)
{
    return KELTextPixmap(u"Caption"_s, canvas, brush, QBrush(Qt::white), QFont()).toImage();
}

struct Place
{
    const char *name;
    Painted paint;
};

Place tablePlace(const char *name, const TableField &field)
{
    return {name, [field](const QBrush &brush) { return paintedTable(field, nullptr, brush); }};
}

Place pagePlace(const char *name, const PageField &field)
{
    return {name, [field](const QBrush &brush) { return paintedTable(nullptr, field, brush); }};
}

QList<Place> places()
{
    using TableStyle = KELNavigationTableStyle;
    using PageStyle = KELNavigationTableItemStyle;
    const auto bar = [](const FieldOf &field) {
        return [field](const QBrush &brush) { return paintedAtHalf<KELProcessBar>(field, brush); };
    };
    const auto slider = [](const FieldOf &field) {
        return
            [field](const QBrush &brush) { return paintedAtHalf<KELSlideControl>(field, brush); };
    };
    return {
        {"base, fill", painted<KELRoundRectControl>(backgroundOf)},
        {"base, outline", painted<KELRoundRectControl>(outlineOf)},
        {"base, caption and glyph", painted<KELRoundRectControl>(foregroundOf)},
        {"push button, fill", painted<KELPushButton>(backgroundOf)},
        {"push button, outline", painted<KELPushButton>(outlineOf)},
        {"push button, caption and glyph", painted<KELPushButton>(foregroundOf)},
        {"combo box entry, fill", painted<KELComboBoxItem>(backgroundOf)},
        {"combo box entry, caption and glyph", painted<KELComboBoxItem>(foregroundOf)},
        {"label, fill", painted<KELLabel>(backgroundOf)},
        {"label, caption and glyph", painted<KELLabel>(foregroundOf)},
        {"line", paintedLine},
        {"check box, track", painted<KELCheckBox>(backgroundOf, false)},
        {"check box, knob", painted<KELCheckBox>(knobOf, false)},
        {"check box, outline", painted<KELCheckBox>(outlineOf)},
        {"radio box, fill", painted<KELRadioBox>(backgroundOf)},
        {"radio box, outline", painted<KELRadioBox>(outlineOf)},
        {"radio box, dot", painted<KELRadioBox>(foregroundOf)},
        {"progress bar, bar", bar(backgroundOf)},
        {"progress bar, done", bar(outlineOf)},
        {"progress bar, number", bar(foregroundOf)},
        {"slider, groove", slider(backgroundOf)},
        {"slider, knob", slider(foregroundOf)},
        {"slider, outline", slider(outlineOf)},
        tablePlace("table, background",
                   [](TableStyle *s) -> QBrush & { return s->backgroundBrush; }),
        tablePlace("table, title bar",
                   [](TableStyle *s) -> QBrush & { return s->titleBackgroundBrush; }),
        tablePlace("table, title",
                   [](TableStyle *s) -> QBrush & { return s->titleForegroundBrush; }),
        pagePlace("table, tab", [](PageStyle *s) -> QBrush & { return s->backgroundBrush; }),
        pagePlace("table, tab of the page shown",
                  [](PageStyle *s) -> QBrush & { return s->buttonBackground; }),
        pagePlace("table, caption and glyph of a tab",
                  [](PageStyle *s) -> QBrush & { return s->buttonForeground; }),
        {"text pixmap", paintedText},
    };
}

void addPlaces()
{
    QTest::addColumn<Painted>("paint");
    for (const Place &place : places())
        QTest::newRow(place.name) << place.paint;
}

} // namespace

// What brushes of a style record paint, and that those do nothing with which Qt would crash.
class tst_Brushes : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void unusableGradientPaintsNothing_data()
    {
        QTest::addColumn<QBrush>("brush");

        const struct
        {
            const char *name;
            qreal value;
        } numbers[] = {{"not a number", notANumber},
                       {"infinite", infinite},
                       {"minus infinite", -infinite},
                       {"1e308", 1e308},
                       {"-1e308", -1e308},
                       {"1e12", 1e12},
                       {"just beyond", 100000.1},
                       {"just beyond, negative", -100000.1}};
        for (const auto &number : numbers) {
            const qreal value = number.value;
            const auto add = [&number](const char *what, const QBrush &brush) {
                QTest::addRow("%s %s", what, number.name) << brush;
            };
            add("linear, x of start", coloured(QLinearGradient(value, 0, 100, 50)));
            add("linear, y of start", coloured(QLinearGradient(0, value, 100, 50)));
            add("linear, x of stop", coloured(QLinearGradient(0, 0, value, 50)));
            add("linear, y of stop", coloured(QLinearGradient(0, 0, 100, value)));
            add("radial, x of centre", coloured(QRadialGradient(value, 20, 40)));
            add("radial, y of centre", coloured(QRadialGradient(30, value, 40)));
            add("radial, centre without focal point",
                coloured(QRadialGradient(QPointF(value, 20), 40, QPointF(30, 20))));
            add("radial, radius", coloured(QRadialGradient(30, 20, value)));
            add("radial, x of focal point",
                coloured(QRadialGradient(QPointF(30, 20), 40, QPointF(value, 20), 5)));
            add("radial, y of focal point",
                coloured(QRadialGradient(QPointF(30, 20), 40, QPointF(30, value), 5)));
            add("radial, focal radius",
                coloured(QRadialGradient(QPointF(30, 20), 40, QPointF(30, 20), value)));
            add("conical, x of centre", coloured(QConicalGradient(value, 20, 45)));
            add("conical, y of centre", coloured(QConicalGradient(30, value, 45)));
            add("conical, angle", coloured(QConicalGradient(30, 20, value)));
            const QTransform moved(1, 0, 0, 1, value, 0);
            add("linear, moved", transformed(linear(), moved));
            add("radial, moved", transformed(radial(), moved));
            add("conical, moved", transformed(conical(), moved));
            add("radial, scaled", transformed(radial(), QTransform(value, 0, 0, 1, 0, 0)));
            add("radial, sheared", transformed(radial(), QTransform(1, value, 0, 1, 0, 0)));
            add("radial, in perspective",
                transformed(radial(), QTransform(1, 0, value, 0, 1, 0, 0, 0, 1)));
            add("radial, last number",
                transformed(radial(), QTransform(1, 0, 0, 0, 1, 0, 0, 0, value)));
        }
        QTest::newRow("stop at no number") << stoppedAt(notANumber);
        QTest::newRow("scaled by 0") << transformed(radial(), QTransform::fromScale(0, 1));
        QTest::newRow("scaled by a tiny number")
            << transformed(radial(), QTransform::fromScale(1e-160, 1));
        QTest::newRow("scaled by a small number")
            << transformed(radial(), QTransform::fromScale(9e-6, 1));
        QTest::newRow("circles that touch")
            << coloured(QRadialGradient(QPointF(0, 0), 50, QPointF(30, 0), 20));
        QTest::newRow("circles that nearly touch")
            << coloured(QRadialGradient(QPointF(0, 0), 50, QPointF(30 - 1e-9, 0), 20));
        QTest::newRow("negative radius")
            << coloured(QRadialGradient(QPointF(0, 1.7e-6), -100000, QPointF(-100000, 0), 0));
        QTest::newRow("all 0") << transformed(radial(), QTransform(0, 0, 0, 0, 0, 0, 0, 0, 0));
    }

    void unusableGradientPaintsNothing()
    {
        QFETCH(QBrush, brush);
        const auto paint = [](const QBrush &background, const QTransform &transform) {
            KELRoundRectControl control;
            control.setboundRect(5, 5, 60, 30);
            control.style()->backgroundBrush = background;
            control.style()->borderBrush = QBrush(Qt::NoBrush);
            return KelImage::draw(canvas, 1, [&](QPainter *painter) {
                painter->setTransform(transform, true);
                QStyleOptionGraphicsItem option;
                control.paint(painter, &option, nullptr);
            });
        };
        for (const QTransform &transform :
             {QTransform(), QTransform::fromScale(2, 2), QTransform().rotate(30)}) {
            QCOMPARE(KelImage::difference(paint(brush, transform), paint(Qt::NoBrush, transform)),
                     QString());
        }
    }

    void unusableInEveryPlace_data()
    {
        addPlaces();
        // Whether they show there or not.
        forEachControl([](auto tag) {
            using Control = typename decltype(tag)::Type;
            const char *const name = Control::staticMetaObject.className();
            QTest::addRow("background of a %s", name) << painted<Control>(backgroundOf);
            QTest::addRow("foreground of a %s", name) << painted<Control>(foregroundOf);
            QTest::addRow("outline of a %s", name) << painted<Control>(outlineOf);
        });
    }

    void unusableInEveryPlace()
    {
        QFETCH(Painted, paint);
        const QImage nothing = paint(QColor(0, 0, 0, 0));
        QCOMPARE(
            KelImage::difference(paint(coloured(QRadialGradient(notANumber, 20, 40))), nothing),
            QString());
        QCOMPARE(KelImage::difference(paint(coloured(QRadialGradient(30, 20, 1e308))), nothing),
                 QString());
        QCOMPARE(
            KelImage::difference(paint(coloured(QLinearGradient(infinite, 0, 100, 0))), nothing),
            QString());
    }

    void usableGradientPaints_data()
    {
        QTest::addColumn<QBrush>("brush");
        QTest::newRow("linear") << linear();
        QTest::newRow("radial") << radial();
        QTest::newRow("conical") << conical();
        QTest::newRow("at the limit") << coloured(
            QRadialGradient(QPointF(-100000, 100000), 100000, QPointF(-99000, 99000), 10));
        QTest::newRow("circles near each other")
            << coloured(QRadialGradient(QPointF(0, 0), 50, QPointF(29.99, 0), 20));
        QTest::newRow("without size") << coloured(QRadialGradient(30, 20, 0));
        QTest::newRow("transformed")
            << transformed(radial(), QTransform().rotate(30).scale(2, 0.5));
        QTest::newRow("in perspective")
            << transformed(linear(), QTransform(1, 0, 0.001, 0, 1, 0, 0, 0, 1));
        QTest::newRow("scaled far down") << transformed(radial(), QTransform::fromScale(1.1e-5, 1));
        QTest::newRow("stops at the ends") << stoppedAt(1);
        QTest::newRow("preset") << QBrush(QGradient(QGradient::WarmFlame));
    }

    void usableGradientPaints()
    {
        QFETCH(QBrush, brush);
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
        QVERIFY(expected != KelImage::draw(canvas, 1, [](QPainter *) {}));
    }

    void usableInEveryPlace_data() { addPlaces(); }

    void usableInEveryPlace()
    {
        QFETCH(Painted, paint);
        QVERIFY(paint(radial()) != paint(QColor(0, 0, 0, 0)));
    }
};

KEL_TEST_MAIN(tst_Brushes)
#include "tst_brushes.moc"
