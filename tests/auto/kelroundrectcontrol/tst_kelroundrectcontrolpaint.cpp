// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "keltest.h"

#include <kelroundrectcontrol.h>

#include <QtGui/QFontMetrics>
#include <QtGui/QLinearGradient>
#include <QtGui/QPainter>
#include <QtWidgets/QMenu>
#include <QtWidgets/QStyleOptionGraphicsItem>

#include <cmath>
#include <limits>

using Look = std::function<void(KELRoundRectControlStyle &)>;
Q_DECLARE_METATYPE(Look)
Q_DECLARE_METATYPE(QMarginsF)

namespace {

constexpr qreal notANumber = std::numeric_limits<qreal>::quiet_NaN();
constexpr qreal infinite = std::numeric_limits<qreal>::infinity();

// A picture whose every pixel has a colour of its own.
QPixmap testPixmap(int width = 23, int height = 17)
{
    QImage image(width, height, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            image.setPixelColor(x, y, QColor(x * 255 / width, y * 255 / height, (x * y * 7) % 256));
    }
    return QPixmap::fromImage(image);
}

QLinearGradient testGradient()
{
    QLinearGradient gradient(0, 0, 150, 80);
    gradient.setColorAt(0, Qt::yellow);
    gradient.setColorAt(1, Qt::darkBlue);
    return gradient;
}

int upwardHalves(qreal value)
{
    return int(std::floor(value + 0.5));
}

QString trimmedByHand(const QString &text, qreal width, const QFont &font)
{
    QStringList kept;
    const QStringList lines = text.split(QLatin1Char('\n'));
    for (const QString &line : lines) {
        if (!line.isEmpty())
            kept.append(QFontMetrics(font).elidedText(line, Qt::ElideRight, int(width), 0x800));
    }
    return kept.join(QLatin1Char('\n'));
}

void drawShapeByHand(QPainter *painter, const KELRoundRectControlStyle &style, const QRectF &rect)
{
    const bool hasFill = style.backgroundBrush.style() != Qt::NoBrush;
    if (hasFill)
        painter->setBrush(style.backgroundBrush);
    if (style.borderBrush.style() != Qt::NoBrush && style.borderWidth > 0) {
        QPen pen(Qt::SolidLine);
        pen.setBrush(style.borderBrush);
        pen.setWidthF(double(style.borderWidth));
        pen.setCapStyle(Qt::SquareCap);
        pen.setJoinStyle(Qt::BevelJoin);
        painter->setPen(pen);
        const double half = double(style.borderWidth) / 2;
        painter->drawRoundedRect(QRectF(rect.x() + half, rect.y() + half, rect.width() - 2 * half,
                                        rect.height() - 2 * half),
                                 style.xRadius, style.yRadius, Qt::AbsoluteSize);
    } else if (hasFill) {
        painter->drawRoundedRect(rect, style.xRadius, style.yRadius, Qt::AbsoluteSize);
    }
}

// What a control with this style in this rectangle looks like.
void drawByHand(QPainter *painter, const KELRoundRectControlStyle &style, const QRectF &rect)
{
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setRenderHint(QPainter::TextAntialiasing);
    painter->setRenderHint(QPainter::SmoothPixmapTransform);
    painter->setPen(Qt::NoPen);
    painter->setBrush(Qt::NoBrush);
    drawShapeByHand(painter, style, rect);

    const QMarginsF &margins = style.margins;
    const QRectF content(rect.x() + margins.left(), rect.y() + margins.top(),
                         rect.width() - margins.left() - margins.right(),
                         rect.height() - margins.top() - margins.bottom());
    if (!style.pixmap.isNull()) {
        painter->drawPixmap(upwardHalves(content.x()), upwardHalves(content.y()),
                            upwardHalves(content.width()), upwardHalves(content.height()),
                            style.pixmap);
    }
    QPen pen(style.foregroundBrush, 1);
    pen.setCapStyle(Qt::SquareCap);
    pen.setJoinStyle(Qt::BevelJoin);
    if (!style.icon.isNull()) {
        QFont font(KELIconFont::g_fontFamily, -1, -1, false);
        font.setPixelSize(style.iconSize);
        painter->setPen(pen);
        painter->setFont(font);
        painter->drawText(content, style.textFlags, QString(style.icon.getIcon()));
    }
    if (style.foregroundBrush.style() != Qt::NoBrush && !style.text.isEmpty()) {
        painter->setPen(pen);
        painter->setFont(style.font);
        painter->drawText(content, style.textFlags,
                          style.trimText ? trimmedByHand(style.text, content.width(), style.font)
                                         : style.text);
    }
}

// A control whose caption font does not depend on the machine's default size.
void furnish(KELRoundRectControl *control, const QRectF &rect, const Look &look)
{
    control->setboundRect(rect);
    control->style()->font.setPixelSize(14);
    if (look)
        look(*control->style());
}

QImage blank(const QSize &size, qreal scale)
{
    return KelImage::draw(size, scale, [](QPainter *) {});
}

// Empty when the control is painted as drawn by hand.
QString differenceToHand(KELRoundRectControl *control, const QSize &size, qreal scale)
{
    const QImage byHand = KelImage::draw(size, scale, [control](QPainter *painter) {
        drawByHand(painter, *control->style(), control->boundingRect());
    });
    return KelImage::difference(KelImage::paint(control, size, scale), byHand);
}

// Paints a control and claims a margin around it.
class EnlargedItem : public QGraphicsItem
{
public:
    EnlargedItem(KELRoundRectControl *control, qreal margin) : m_control(control), m_margin(margin)
    { }
    QRectF boundingRect() const override
    {
        return m_control->boundingRect().adjusted(-m_margin, -m_margin, m_margin, m_margin);
    }
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override
    {
        m_control->paint(painter, option, widget);
    }

private:
    KELRoundRectControl *m_control;
    qreal m_margin;
};

struct NamedLook
{
    const char *name;
    Look look;
};

const std::vector<NamedLook> &looks()
{
    using Style = KELRoundRectControlStyle;
    static const std::vector<NamedLook> all = {
        {"new", Look()},
        {"fill alone", [](Style &s) { s.borderBrush = Qt::NoBrush; }},
        {"outline alone", [](Style &s) { s.backgroundBrush = Qt::NoBrush; }},
        {"neither fill nor outline",
         [](Style &s) { s.backgroundBrush = s.borderBrush = Qt::NoBrush; }},
        {"outline brush without width",
         [](Style &s) {
             s.borderWidth = 0;
             s.borderBrush = QColor(Qt::red);
         }},
        {"outline brush with a negative width",
         [](Style &s) {
             s.borderWidth = -4;
             s.borderBrush = QColor(Qt::red);
         }},
        {"outline of 2",
         [](Style &s) {
             s.borderWidth = 2;
             s.borderBrush = QColor(255, 0, 0, 100);
         }},
        {"thick outline, round corners",
         [](Style &s) {
             s.borderWidth = 6.7F;
             s.borderBrush = QColor(255, 0, 0, 100);
             s.xRadius = 12;
             s.yRadius = 5;
         }},
        {"round corners",
         [](Style &s) {
             s.borderBrush = Qt::NoBrush;
             s.xRadius = s.yRadius = 8;
         }},
        {"radii larger than the rectangle",
         [](Style &s) {
             s.xRadius = 900;
             s.yRadius = 700;
         }},
        {"negative radii",
         [](Style &s) {
             s.xRadius = -8;
             s.yRadius = -8;
         }},
        {"one radius only", [](Style &s) { s.xRadius = 8; }},
        {"patterned fill, gradient outline",
         [](Style &s) {
             s.backgroundBrush = QBrush(Qt::darkGreen, Qt::DiagCrossPattern);
             s.borderBrush = testGradient();
             s.borderWidth = 5;
         }},
        {"gradient fill", [](Style &s) { s.backgroundBrush = testGradient(); }},
        {"texture fill", [](Style &s) { s.backgroundBrush = QBrush(testPixmap(9, 9)); }},
        {"transparent fill",
         [](Style &s) {
             s.backgroundBrush = QColor(Qt::transparent);
             s.borderWidth = 3;
         }},
        {"caption", [](Style &s) { s.text = u"Caption"_s; }},
        {"caption without brush",
         [](Style &s) {
             s.text = u"Caption"_s;
             s.foregroundBrush = Qt::NoBrush;
         }},
        {"caption in a gradient",
         [](Style &s) {
             s.text = u"Caption"_s;
             s.foregroundBrush = testGradient();
         }},
        {"translucent caption",
         [](Style &s) {
             s.text = u"Caption"_s;
             s.foregroundBrush = QColor(200, 0, 0, 120);
         }},
        {"caption with an ampersand", [](Style &s) { s.text = u"&Save &&"_s; }},
        {"long caption",
         [](Style &s) { s.text = u"A caption that is too long for the control"_s; }},
        {"long caption, untrimmed",
         [](Style &s) {
             s.text = u"A caption that is too long for the control"_s;
             s.trimText = false;
         }},
        {"long caption, untrimmed, one line",
         [](Style &s) {
             s.text = u"A caption that is too long for the control"_s;
             s.trimText = false;
             s.textFlags = Qt::AlignLeft | Qt::TextSingleLine;
         }},
        {"caption of three lines", [](Style &s) { s.text = u"One\n\nTwo lines\n3"_s; }},
        {"caption of three lines, untrimmed",
         [](Style &s) {
             s.text = u"One\n\nTwo\n3"_s;
             s.trimText = false;
         }},
        {"caption at the top left",
         [](Style &s) {
             s.text = u"Caption"_s;
             s.textFlags = 0;
         }},
        {"caption at the bottom right",
         [](Style &s) {
             s.text = u"Caption"_s;
             s.textFlags = Qt::AlignRight | Qt::AlignBottom;
         }},
        {"caption in a bold font",
         [](Style &s) {
             s.text = u"Caption"_s;
             s.font.setBold(true);
         }},
        {"caption inside margins",
         [](Style &s) {
             s.text = u"Caption text"_s;
             s.margins = QMarginsF(10.25, 4.5, 20.75, 1);
         }},
        {"pixmap", [](Style &s) { s.pixmap = testPixmap(); }},
        {"pixmap inside margins",
         [](Style &s) {
             s.pixmap = testPixmap();
             s.margins = QMarginsF(3.5, 2.5, 7.4, 6.6);
         }},
        {"pixmap of a dense screen",
         [](Style &s) {
             s.pixmap = testPixmap();
             s.pixmap.setDevicePixelRatio(2);
         }},
        {"glyph", [](Style &s) { s.icon = KELIconFont('W'); }},
        {"small glyph",
         [](Style &s) {
             s.icon = KELIconFont('W');
             s.iconSize = 9;
         }},
        {"glyph without brush",
         [](Style &s) {
             s.icon = KELIconFont('W');
             s.foregroundBrush = Qt::NoBrush;
         }},
        {"glyph at the bottom right",
         [](Style &s) {
             s.icon = KELIconFont('W');
             s.textFlags = Qt::AlignRight | Qt::AlignBottom;
         }},
        {"glyph and caption",
         [](Style &s) {
             s.icon = KELIconFont('W');
             s.text = u"Caption"_s;
         }},
        {"everything",
         [](Style &s) {
             s.pixmap = testPixmap();
             s.icon = KELIconFont('W');
             s.text = u"Caption"_s;
             s.foregroundBrush = QColor(0, 0, 200, 150);
             s.borderWidth = 3;
             s.xRadius = s.yRadius = 6;
             s.margins = QMarginsF(4, 3, 2, 1);
         }},
        {"margins larger than the rectangle",
         [](Style &s) {
             s.pixmap = testPixmap();
             s.icon = KELIconFont('W');
             s.text = u"Caption"_s;
             s.margins = QMarginsF(90, 50, 80, 40);
         }},
        {"margins exactly as large as a rectangle of 90 x 40",
         [](Style &s) {
             s.pixmap = testPixmap();
             s.margins = QMarginsF(45, 20, 45, 20);
         }},
        {"negative margins",
         [](Style &s) {
             s.pixmap = testPixmap();
             s.text = u"Caption"_s;
             s.margins = QMarginsF(-5, -4, -3, -2);
         }},
    };
    return all;
}

} // namespace

class tst_KELRoundRectControlPaint : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void looksAsDrawnByHand_data()
    {
        QTest::addColumn<Look>("look");
        QTest::addColumn<qreal>("scale");

        for (const NamedLook &row : looks()) {
            for (const qreal scale : {1.0, 0.5, 1.25, 3.0})
                QTest::addRow("%s, scaled by %g", row.name, scale) << row.look << scale;
        }
    }

    void looksAsDrawnByHand()
    {
        QFETCH(Look, look);
        QFETCH(qreal, scale);
        KELRoundRectControl control;
        furnish(&control, QRectF(12, 9, 90, 40), look);
        QCOMPARE(differenceToHand(&control, QSize(140, 80), scale), QString());
    }

    void sizes_data()
    {
        QTest::addColumn<Look>("look");
        QTest::addColumn<QRectF>("rect");

        const struct
        {
            const char *name;
            QRectF rect;
        } rects[] = {
            {"at the origin", QRectF(0, 0, 50, 50)},
            {"at a fraction", QRectF(10.3, 7.6, 60.5, 33.25)},
            {"large", QRectF(5, 5, 190, 110)},
            {"one pixel", QRectF(20, 20, 1, 1)},
            {"thinner than the outline", QRectF(20, 20, 90, 1.5)},
            {"empty", QRectF(20, 20, 0, 0)},
            {"line", QRectF(20, 20, 80, 0)},
            {"negative size", QRectF(100, 60, -60, -30)},
            {"partly outside of the picture", QRectF(-30, -20, 90, 60)},
            {"far larger than the picture", QRectF(-5000, -5000, 10000, 10000)},
        };
        for (const auto &row : rects) {
            for (const NamedLook &look : looks())
                QTest::addRow("%s, %s", row.name, look.name) << look.look << row.rect;
        }
    }

    void sizes()
    {
        QFETCH(Look, look);
        QFETCH(QRectF, rect);
        KELRoundRectControl control;
        furnish(&control, rect, look);
        QCOMPARE(differenceToHand(&control, QSize(200, 120), 1), QString());
    }

    void statesDoNotShow_data()
    {
        QTest::addColumn<bool>("pressed");
        QTest::addColumn<bool>("checked");
        QTest::addColumn<bool>("enabled");
        QTest::addColumn<bool>("selected");

        QTest::newRow("pressed") << true << false << true << false;
        QTest::newRow("checked") << false << true << true << false;
        QTest::newRow("disabled") << false << false << false << false;
        QTest::newRow("selected") << false << false << true << true;
        QTest::newRow("everything") << true << true << false << true;
    }

    void statesDoNotShow()
    {
        QFETCH(bool, pressed);
        QFETCH(bool, checked);
        QFETCH(bool, enabled);
        QFETCH(bool, selected);
        QMenu menu;
        KELRoundRectControl control;
        furnish(&control, QRectF(10, 10, 90, 40), looks().back().look);
        control.setFlag(QGraphicsItem::ItemIsSelectable);
        control.style()->text = u"Caption"_s;
        control.style()->contextMenu = &menu;
        control.style()->isMouseDown = pressed;
        control.style()->isCheck = checked;
        control.setEnabled(enabled);
        control.setSelected(selected);
        const QString difference = differenceToHand(&control, QSize(120, 60), 1);
        control.style()->contextMenu = nullptr;
        QCOMPARE(difference, QString());
    }

    void childIsDrawnAtItsBoundingRect()
    {
        KELRoundRectControl parent;
        parent.setboundRect(10, 20, 150, 90);
        KELRoundRectControl child(&parent);
        furnish(&child, QRectF(5, 5, 50, 30), [](KELRoundRectControlStyle &style) {
            style.text = u"Child"_s;
            style.pixmap = testPixmap();
        });
        const QImage byHand = KelImage::draw(QSize(160, 110), 1, [&child](QPainter *painter) {
            drawByHand(painter, *child.style(), QRectF(15, 25, 50, 30));
        });
        QCOMPARE(KelImage::difference(KelImage::paint(&child, QSize(160, 110)), byHand), QString());
    }

    void oldPenAndBrushDoNotShow()
    {
        for (const NamedLook &row : looks()) {
            KELRoundRectControl control;
            furnish(&control, QRectF(12, 9, 90, 40), row.look);
            const QImage painted = KelImage::draw(QSize(140, 80), 1, [&control](QPainter *painter) {
                painter->setPen(QPen(Qt::red, 9));
                painter->setBrush(Qt::green);
                QFont font;
                font.setPixelSize(40);
                painter->setFont(font);
                QStyleOptionGraphicsItem option;
                control.paint(painter, &option, nullptr);
            });
            const QString difference = KelImage::difference(
                painted, KelImage::paint(&control, QSize(140, 80)));
            QVERIFY2(difference.isEmpty(), qPrintable(QLatin1String(row.name) + difference));
        }
    }

    void renderHintsAreAdded()
    {
        KELRoundRectControl control;
        QImage image(10, 10, QImage::Format_ARGB32_Premultiplied);
        QPainter painter(&image);
        painter.setRenderHints(painter.renderHints(), false);
        painter.setRenderHint(QPainter::LosslessImageRendering);
        QStyleOptionGraphicsItem option;
        control.paint(&painter, &option, nullptr);
        QCOMPARE(painter.renderHints(),
                 QPainter::RenderHints(7) | QPainter::LosslessImageRendering);
    }

    void argumentsAreNotRead()
    {
        KELRoundRectControl control;
        furnish(&control, QRectF(12, 9, 90, 40), looks().front().look);
        const QImage painted = KelImage::draw(QSize(140, 80), 1, [&control](QPainter *painter) {
            control.paint(painter, nullptr, nullptr);
        });
        QCOMPARE(KelImage::difference(painted, KelImage::paint(&control, QSize(140, 80))),
                 QString());
    }

    void glyphKeepsTheFamilyItWasBuiltWith()
    {
        KELRoundRectControl control;
        furnish(&control, QRectF(0, 0, 60, 60), Look());
        KELIconFont::g_fontFamily = u"DejaVu Serif"_s;
        control.style()->icon = KELIconFont('W');
        control.style()->iconSize = 40;
        const QImage byHand = KelImage::draw(QSize(60, 60), 1, [&control](QPainter *painter) {
            drawByHand(painter, *control.style(), QRectF(0, 0, 60, 60));
        });
        KELIconFont::g_fontFamily = u"DejaVu Sans Mono"_s;
        const QImage painted = KelImage::paint(&control, QSize(60, 60));
        KELIconFont::g_fontFamily.clear();
        QCOMPARE(KelImage::difference(painted, byHand), QString());
    }

    void outlineStaysInside()
    {
        KELRoundRectControl control;
        control.setboundRect(10, 10, 40, 20);
        control.style()->backgroundBrush = Qt::NoBrush;
        control.style()->borderBrush = QColor(Qt::red);
        control.style()->borderWidth = 2;
        const QImage image = KelImage::paint(&control, QSize(60, 40));
        const QRgb nothing = blank(QSize(1, 1), 1).pixel(0, 0);
        const QRgb red = QColor(Qt::red).rgb();
        for (int x = 0; x < 60; ++x) {
            const QRgb expected = x == 10 || x == 11 || x == 48 || x == 49 ? red : nothing;
            QCOMPARE(image.pixel(x, 20), expected);
        }
        for (int y = 0; y < 40; ++y) {
            const QRgb expected = y == 10 || y == 11 || y == 28 || y == 29 ? red : nothing;
            QCOMPARE(image.pixel(30, y), expected);
        }
    }

    void pixmapIsRoundedSideBySide_data()
    {
        QTest::addColumn<QRectF>("rect");
        QTest::addColumn<QMarginsF>("margins");
        QTest::addColumn<QRect>("expected");

        QTest::newRow("whole") << QRectF(10, 10, 20, 20) << QMarginsF() << QRect(10, 10, 20, 20);
        QTest::newRow("half place")
            << QRectF(10.5, 10.5, 20, 20) << QMarginsF() << QRect(11, 11, 20, 20);
        QTest::newRow("half size")
            << QRectF(10, 10, 20.5, 20.5) << QMarginsF() << QRect(10, 10, 21, 21);
        // QRectF::toRect() would give 20 x 20.
        QTest::newRow("half place and size")
            << QRectF(10.5, 10.5, 20.5, 20.5) << QMarginsF() << QRect(11, 11, 21, 21);
        // QRectF::toRect() would give 21 x 21.
        QTest::newRow("fractions that add up")
            << QRectF(10.4, 10.4, 20.4, 20.4) << QMarginsF() << QRect(10, 10, 20, 20);
        QTest::newRow("negative half place")
            << QRectF(-0.5, -1.5, 20.5, 20.5) << QMarginsF() << QRect(0, -1, 21, 21);
        QTest::newRow("just below the half")
            << QRectF(10.49, 10.49, 20.49, 20.49) << QMarginsF() << QRect(10, 10, 20, 20);
        QTest::newRow("half margins")
            << QRectF(10, 10, 40, 30) << QMarginsF(0.5, 1.5, 2, 3) << QRect(11, 12, 38, 26);
        QTest::newRow("half pixel large")
            << QRectF(10, 10, 0.5, 0.5) << QMarginsF() << QRect(10, 10, 1, 1);
        QTest::newRow("nothing left") << QRectF(10, 10, 0.4, 0.4) << QMarginsF() << QRect();
    }

    void pixmapIsRoundedSideBySide()
    {
        QFETCH(QRectF, rect);
        QFETCH(QMarginsF, margins);
        QFETCH(QRect, expected);
        const QSize size(60, 60);
        KELRoundRectControl control;
        control.setboundRect(rect);
        control.style()->backgroundBrush = control.style()->borderBrush = Qt::NoBrush;
        control.style()->margins = margins;
        control.style()->pixmap = testPixmap();
        const QImage byHand = KelImage::draw(size, 1, [&](QPainter *painter) {
            painter->setRenderHints(QPainter::RenderHints(7));
            if (!expected.isNull())
                painter->drawPixmap(expected, testPixmap());
        });
        QCOMPARE(KelImage::difference(KelImage::paint(&control, size), byHand), QString());
    }

    void negativePixmapSizeMeansItsOwnSize()
    {
        KELRoundRectControl control;
        control.setboundRect(10, 10, 20, 20);
        control.style()->backgroundBrush = control.style()->borderBrush = Qt::NoBrush;
        control.style()->margins = QMarginsF(15, 15, 10, 10);
        control.style()->pixmap = testPixmap();
        const QImage byHand = KelImage::draw(
            QSize(60, 60), 1, [](QPainter *painter) { painter->drawPixmap(25, 25, testPixmap()); });
        QCOMPARE(KelImage::difference(KelImage::paint(&control, QSize(60, 60)), byHand), QString());
    }

    void rectanglesThatAreNotFinitePaintNothing_data()
    {
        QTest::addColumn<QRectF>("rect");

        for (const qreal bad : {notANumber, infinite, -infinite}) {
            QTest::addRow("x is %g", bad) << QRectF(bad, 10, 40, 30);
            QTest::addRow("y is %g", bad) << QRectF(10, bad, 40, 30);
            QTest::addRow("width is %g", bad) << QRectF(10, 10, bad, 30);
            QTest::addRow("height is %g", bad) << QRectF(10, 10, 40, bad);
            QTest::addRow("everything is %g", bad) << QRectF(bad, bad, bad, bad);
        }
    }

    void rectanglesThatAreNotFinitePaintNothing()
    {
        QFETCH(QRectF, rect);
        const QSize size(60, 60);
        for (const NamedLook &row : looks()) {
            KELRoundRectControl control;
            furnish(&control, rect, row.look);
            const QString difference = KelImage::difference(KelImage::paint(&control, size),
                                                            blank(size, 1));
            QVERIFY2(difference.isEmpty(), qPrintable(QLatin1String(row.name) + difference));
        }
    }

    void strangeNumbers_data()
    {
        using Style = KELRoundRectControlStyle;
        QTest::addColumn<Look>("look");
        QTest::addColumn<Look>("sameAs");

        const Look square = [](Style &) {};
        const Look shapeAlone = [](Style &s) {
            s.pixmap = QPixmap();
            s.icon = KELIconFont();
            s.text.clear();
        };
        const Look noOutline = [](Style &s) { s.borderBrush = Qt::NoBrush; };
        QTest::newRow("radius x not a number") << Look([](Style &s) {
            s.xRadius = notANumber;
            s.yRadius = 8;
        }) << square;
        QTest::newRow("radius y not a number") << Look([](Style &s) {
            s.xRadius = 8;
            s.yRadius = notANumber;
        }) << square;
        QTest::newRow("outline width not a number")
            << Look([](Style &s) { s.borderWidth = float(notANumber); }) << noOutline;
        QTest::newRow("margin not a number")
            << Look([](Style &s) { s.margins.setLeft(notANumber); }) << shapeAlone;
        QTest::newRow("infinite margin")
            << Look([](Style &s) { s.margins.setRight(infinite); }) << shapeAlone;
        QTest::newRow("infinite negative margin")
            << Look([](Style &s) { s.margins.setTop(-infinite); }) << shapeAlone;
    }

    void strangeNumbers()
    {
        QFETCH(Look, look);
        QFETCH(Look, sameAs);
        const QSize size(140, 80);
        KELRoundRectControl control;
        furnish(&control, QRectF(12, 9, 90, 40), looks().at(0).look);
        control.style()->text = u"Caption"_s;
        control.style()->pixmap = testPixmap();
        control.style()->icon = KELIconFont('W');
        KELRoundRectControlStyle other = *control.style();
        sameAs(other);
        look(*control.style());
        const QImage byHand = KelImage::draw(size, 1, [&other](QPainter *painter) {
            drawByHand(painter, other, QRectF(12, 9, 90, 40));
        });
        QCOMPARE(KelImage::difference(KelImage::paint(&control, size), byHand), QString());
    }

    void picturesBeyondEveryScreen_data()
    {
        QTest::addColumn<QRectF>("rect");
        QTest::newRow("right and below") << QRectF(1e300, 1e300, 1e300, 1e300);
        QTest::newRow("left and above") << QRectF(-1e300, -1e300, -1e300, -1e300);
        QTest::newRow("at the end of int") << QRectF(2147483647.0, 2147483647.0, 1.5, 1.5);
    }

    // The corners are sums of two numbers that were brought into the range of int.
    void picturesBeyondEveryScreen()
    {
        QFETCH(QRectF, rect);
        KELRoundRectControl control;
        control.setboundRect(rect);
        control.style()->backgroundBrush = Qt::NoBrush;
        control.style()->borderBrush = Qt::NoBrush;
        control.style()->pixmap = QPixmap(4, 4);
        control.style()->pixmap.fill(Qt::red);
        const QImage blank = KelImage::draw(QSize(40, 30), 1, [](QPainter *) {});
        QCOMPARE(KelImage::difference(KelImage::paint(&control, QSize(40, 30)), blank), QString());
    }

    void nothingIsPaintedOutside_data()
    {
        QTest::addColumn<Look>("look");
        QTest::addColumn<QRectF>("rect");
        QTest::addColumn<qreal>("scale");

        for (const NamedLook &row : looks()) {
            // These move the picture out of the rectangle on purpose.
            const QByteArray name = row.name;
            if (name.startsWith("negative margins") || name.startsWith("margins "))
                continue;
            for (const qreal scale : {1.0, 0.5, 2.0}) {
                QTest::addRow("%s, scaled by %g", row.name, scale)
                    << row.look << QRectF(12, 9, 90, 40) << scale;
                QTest::addRow("%s, small, scaled by %g", row.name, scale)
                    << row.look << QRectF(12, 9, 20, 16) << scale;
            }
        }
    }

    void nothingIsPaintedOutside()
    {
        QFETCH(Look, look);
        QFETCH(QRectF, rect);
        QFETCH(qreal, scale);
        KELRoundRectControl control;
        furnish(&control, rect, look);
        const KELRoundRectControlStyle &style = *control.style();
        // Qt smooths a line thinner than a pixel over the pixels beside it, and reckons with that
        // wherever it repaints an item.
        const bool isHairline = style.borderBrush.style() != Qt::NoBrush && style.borderWidth > 0
            && qreal(style.borderWidth) * scale <= 1;
        EnlargedItem item(&control, isHairline ? 1 / scale : 0);
        QCOMPARE(KelImage::pixelsOutside(&item, scale), QString());
    }
};

KEL_TEST_MAIN(tst_KELRoundRectControlPaint)

#include "tst_kelroundrectcontrolpaint.moc"
