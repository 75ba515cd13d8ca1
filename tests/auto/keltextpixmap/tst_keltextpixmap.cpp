// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "handdrawing.h"
#include "keltest.h"
#include "rows.h"

#include <keltextpixmap.h>

#include <type_traits>

namespace {

QFont fontOf(int pixelSize, bool bold = false)
{
    QFont font;
    font.setPixelSize(pixelSize);
    font.setBold(bold);
    return font;
}

// What a picture is made of; by default a short black text on white.
struct Case
{
    const char *name;
    QString text = u"Motor"_s;
    QSize size = QSize(80, 40);
    QBrush textBrush = Qt::black;
    QColor background = Qt::white;
    QFont font = fontOf(14);
};

const std::vector<Case> &cases()
{
    const QString longText = u"Pump three runs too fast today"_s;

    static const std::vector<Case> all = {
        {"one word"},
        {"default font", u"Motor"_s, QSize(80, 40), Qt::black, Qt::white, QFont()},
        {"large bold", u"Motor"_s, QSize(80, 40), Qt::white, Qt::darkGreen, fontOf(26, true)},
        {"wrapped", longText, QSize(80, 100)},
        {"clipped below", longText, QSize(50, 30)},
        {"one word wider than the picture", u"Donaudampfschiff"_s, QSize(40, 30)},
        {"two lines", u"a\nb"_s},
        {"ampersand as written", u"A&B"_s},
        {"translucent text", u"Motor"_s, QSize(80, 40), QColor(255, 0, 0, 90)},
        {"gradient text", u"Motor"_s, QSize(80, 40), HandDrawing::gradient()},
        {"text without brush", u"Motor"_s, QSize(80, 40), Qt::NoBrush},
        {"translucent background", u"Motor"_s, QSize(80, 40), Qt::black, QColor(0, 200, 0, 100)},
        {"transparent background", u"Motor"_s, QSize(80, 40), Qt::black, Qt::transparent},
        {"right to left", u"\u05E9\u05DC\u05D5\u05DD"_s},
    };
    return all;
}

QImage handDrawn(const Case &row)
{
    QPixmap pixmap(row.size);
    pixmap.fill(row.background);
    QPainter painter(&pixmap);
    painter.setFont(row.font);
    painter.setPen(HandDrawing::squarePen(row.textBrush, 1));
    painter.drawText(QRectF(QPointF(), row.size), Qt::AlignCenter | Qt::TextWordWrap, row.text);
    painter.end();
    return pixmap.toImage();
}

QRect inkOf(const QPixmap &pixmap, const QColor &background)
{
    return KelImage::inkOf(pixmap.toImage(), background);
}

} // namespace

class tst_KELTextPixmap : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void isTheHandDrawnPicture_data() { addRows({{"case", namesOf(cases())}}); }

    void isTheHandDrawnPicture()
    {
        const Case &row = cases().at(fetch<size_t>("case"));
        const KELTextPixmap actual(row.text, row.size, row.textBrush, row.background, row.font);
        QCOMPARE(KelImage::difference(actual.toImage(), handDrawn(row)), QString());
    }

    void hasTheAskedSize()
    {
        const KELTextPixmap pixmap(u"a"_s, QSize(81, 23), Qt::black, Qt::white, QFont());
        QCOMPARE(pixmap.size(), QSize(81, 23));
        QCOMPARE(pixmap.devicePixelRatio(), 1.0);
    }

    void noBrushGivesATransparentPicture()
    {
        const KELTextPixmap empty(QString(), QSize(30, 20), Qt::black, QBrush(), QFont());
        QVERIFY(empty.hasAlphaChannel());
        QCOMPARE(inkOf(empty, QColor(0, 0, 0, 0)), QRect());

        const KELTextPixmap text(u"Motor"_s, QSize(80, 40), Qt::black, Qt::NoBrush, fontOf(14));
        const QImage image = text.toImage();
        QCOMPARE(image.pixel(0, 0), qRgba(0, 0, 0, 0));
        QCOMPARE(image.pixel(79, 39), qRgba(0, 0, 0, 0));
        QVERIFY(!inkOf(text, QColor(0, 0, 0, 0)).isEmpty());
    }

    void solidBackgroundIsOpaque()
    {
        const KELTextPixmap pixmap(QString(), QSize(30, 20), Qt::black, Qt::red, QFont());
        QCOMPARE(inkOf(pixmap, Qt::red), QRect());
    }

    void backgroundUsesTheColourOnly_data()
    {
        QTest::addColumn<QBrush>("background");
        QTest::addColumn<QColor>("fill");

        QTest::newRow("solid") << QBrush(Qt::red) << QColor(Qt::red);
        QTest::newRow("pattern") << QBrush(Qt::red, Qt::CrossPattern) << QColor(Qt::red);
        QTest::newRow("gradient") << HandDrawing::gradient() << HandDrawing::gradient().color();
        QTest::newRow("fully transparent") << QBrush(Qt::transparent) << QColor(0, 0, 0, 0);
        QTest::newRow("translucent") << QBrush(QColor(0, 0, 255, 128)) << QColor(0, 0, 255, 128);
        // Not equal to a default brush: the colours differ.
        QTest::newRow("no brush, but a colour") << QBrush(Qt::red, Qt::NoBrush) << QColor(Qt::red);
        QTest::newRow("no brush, black as by default")
            << QBrush(Qt::black, Qt::NoBrush) << QColor(0, 0, 0, 0);
    }

    void backgroundUsesTheColourOnly()
    {
        const auto fill = fetch<QColor>("fill");
        const KELTextPixmap pixmap(QString(), QSize(40, 30), Qt::black, fetch<QBrush>("background"),
                                   QFont());
        QCOMPARE(pixmap.toImage().pixelColor(20, 15).alpha(), fill.alpha());
        const QImage expected = handDrawn({"", QString(), QSize(40, 30), Qt::black, fill});
        QCOMPARE(KelImage::difference(pixmap.toImage(), expected), QString());
    }

    void textIsCentred()
    {
        const QSize size(120, 60);
        const KELTextPixmap pixmap(u"HHH"_s, size, Qt::black, Qt::white, fontOf(20));
        const QRect ink = inkOf(pixmap, Qt::white);
        QVERIFY(!ink.isEmpty());
        QVERIFY(qAbs(ink.left() - (size.width() - 1 - ink.right())) <= 2);
        // Ascent and descent differ, so the letters alone sit a little off the middle.
        QVERIFY(qAbs(ink.top() - (size.height() - 1 - ink.bottom())) <= 8);
    }

    void longTextIsWrappedAtWords()
    {
        const QFont font = fontOf(14);
        const QString text = u"HHHHH HHHHH"_s;
        const int lineWidth = QFontMetrics(font).horizontalAdvance(u"HHHHH"_s);
        const QSize size(lineWidth + 8, 100);
        const KELTextPixmap pixmap(text, size, Qt::black, Qt::white, font);
        const QRect ink = inkOf(pixmap, Qt::white);
        QVERIFY(ink.height() > QFontMetrics(font).height());
        QVERIFY(ink.width() <= lineWidth);
        QVERIFY(qAbs(ink.left() - (size.width() - 1 - ink.right())) <= 2);
    }

    void tallTextIsClipped()
    {
        const KELTextPixmap pixmap(u"HHHH\nHHHH\nHHHH\nHHHH"_s, QSize(80, 20), Qt::black, Qt::white,
                                   fontOf(14));
        const QRect ink = inkOf(pixmap, Qt::white);
        QCOMPARE(ink.top(), 0);
        QCOMPARE(ink.bottom(), 19);
    }

    void emptyTextGivesTheBackground()
    {
        const KELTextPixmap pixmap(u""_s, QSize(50, 30), Qt::black, Qt::yellow, QFont());
        QCOMPARE(inkOf(pixmap, Qt::yellow), QRect());
    }

    void emptySizeGivesANullPixmap_data()
    {
        QTest::addColumn<QSize>("size");

        QTest::newRow("default") << QSize();
        QTest::newRow("zero") << QSize(0, 0);
        QTest::newRow("no width") << QSize(0, 20);
        QTest::newRow("no height") << QSize(20, 0);
        QTest::newRow("negative width") << QSize(-20, 20);
        QTest::newRow("negative height") << QSize(20, -20);
        QTest::newRow("both negative") << QSize(-20, -20);
    }

    void emptySizeGivesANullPixmap()
    {
        const KELTextPixmap pixmap(u"Motor"_s, fetch<QSize>("size"), Qt::black, Qt::white, QFont());
        QVERIFY(pixmap.isNull());
        QCOMPARE(takeWarnings(), QStringList());
    }

    void onePixel()
    {
        const KELTextPixmap pixmap(u"Motor"_s, QSize(1, 1), Qt::black, Qt::white, QFont());
        QCOMPARE(pixmap.size(), QSize(1, 1));
    }

    void isAPixmapByValue()
    {
        QVERIFY((std::is_base_of_v<QPixmap, KELTextPixmap>));
        QCOMPARE(sizeof(KELTextPixmap), sizeof(QPixmap));
        QPixmap copy;
        {
            const KELTextPixmap original(u"Motor"_s, QSize(80, 40), Qt::black, Qt::white,
                                         fontOf(14));
            copy = original;
            QCOMPARE(copy.cacheKey(), original.cacheKey());
        }
        QCOMPARE(KelImage::difference(copy.toImage(), handDrawn(cases().front())), QString());
    }
};

KEL_TEST_MAIN(tst_KELTextPixmap)
#include "tst_keltextpixmap.moc"
