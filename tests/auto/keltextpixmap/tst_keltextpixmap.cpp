// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "keltest.h"

#include <keltextpixmap.h>

#include <QtGui/QLinearGradient>
#include <QtGui/QPainter>

#include <type_traits>

Q_DECLARE_METATYPE(QBrush)

namespace {

QFont fontOf(int pixelSize, bool bold = false)
{
    QFont font;
    font.setPixelSize(pixelSize);
    font.setBold(bold);
    return font;
}

QBrush gradient(const QColor &from, const QColor &to)
{
    QLinearGradient colours(0, 0, 80, 0);
    colours.setColorAt(0, from);
    colours.setColorAt(1, to);
    return colours;
}

QPixmap handDrawn(const QString &text, const QSize &size, const QBrush &textBrush,
                  const QColor &background, const QFont &font)
{
    QPixmap pixmap(size);
    pixmap.fill(background);
    QPainter painter(&pixmap);
    painter.setFont(font);
    painter.setPen(QPen(textBrush, 1.0, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
    painter.drawText(QRectF(QPointF(), size), Qt::AlignCenter | Qt::TextWordWrap, text);
    return pixmap;
}

// The smallest rectangle around all pixels that are not background.
QRect inkOf(const QPixmap &pixmap, const QColor &background)
{
    const QImage image = pixmap.toImage().convertToFormat(QImage::Format_ARGB32);
    QRect ink;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) != background.rgba())
                ink |= QRect(x, y, 1, 1);
        }
    }
    return ink;
}

} // namespace

class tst_KELTextPixmap : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void isTheHandDrawnPicture_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QSize>("size");
        QTest::addColumn<QBrush>("textBrush");
        QTest::addColumn<QColor>("background");
        QTest::addColumn<QFont>("font");

        const QString word = u"Motor"_s;
        const QString longText = u"Pump three runs too fast today"_s;
        const QSize size(80, 40);
        QTest::newRow("one word") << word << size << QBrush(Qt::black) << QColor(Qt::white)
                                  << fontOf(14);
        QTest::newRow("default font")
            << word << size << QBrush(Qt::black) << QColor(Qt::white) << QFont();
        QTest::newRow("large bold")
            << word << size << QBrush(Qt::white) << QColor(Qt::darkGreen) << fontOf(26, true);
        QTest::newRow("wrapped") << longText << QSize(80, 100) << QBrush(Qt::black)
                                 << QColor(Qt::white) << fontOf(14);
        QTest::newRow("clipped below")
            << longText << QSize(50, 30) << QBrush(Qt::black) << QColor(Qt::white) << fontOf(14);
        QTest::newRow("one word wider than the picture")
            << u"Donaudampfschiff"_s << QSize(40, 30) << QBrush(Qt::black) << QColor(Qt::white)
            << fontOf(14);
        QTest::newRow("two lines")
            << u"a\nb"_s << size << QBrush(Qt::black) << QColor(Qt::white) << fontOf(14);
        QTest::newRow("ampersand as written")
            << u"A&B"_s << size << QBrush(Qt::black) << QColor(Qt::white) << fontOf(14);
        QTest::newRow("translucent text")
            << word << size << QBrush(QColor(255, 0, 0, 90)) << QColor(Qt::white) << fontOf(20);
        QTest::newRow("gradient text")
            << word << size << gradient(Qt::red, Qt::blue) << QColor(Qt::white) << fontOf(26, true);
        QTest::newRow("text without brush")
            << word << size << QBrush(Qt::NoBrush) << QColor(Qt::white) << fontOf(14);
        QTest::newRow("translucent background")
            << word << size << QBrush(Qt::black) << QColor(0, 200, 0, 100) << fontOf(14);
        QTest::newRow("transparent background")
            << word << size << QBrush(Qt::black) << QColor(0, 0, 0, 0) << fontOf(14);
        QTest::newRow("right to left") << u"\u05E9\u05DC\u05D5\u05DD"_s << size << QBrush(Qt::black)
                                       << QColor(Qt::white) << fontOf(14);
    }

    void isTheHandDrawnPicture()
    {
        QFETCH(QString, text);
        QFETCH(QSize, size);
        QFETCH(QBrush, textBrush);
        QFETCH(QColor, background);
        QFETCH(QFont, font);
        const QPixmap expected = handDrawn(text, size, textBrush, background, font);
        const KELTextPixmap actual(text, size, textBrush, background, font);
        QCOMPARE(KelImage::difference(actual.toImage(), expected.toImage()), QString());
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
        QTest::newRow("gradient") << gradient(Qt::red, Qt::blue)
                                  << gradient(Qt::red, Qt::blue).color();
        QTest::newRow("fully transparent") << QBrush(Qt::transparent) << QColor(0, 0, 0, 0);
        QTest::newRow("translucent") << QBrush(QColor(0, 0, 255, 128)) << QColor(0, 0, 255, 128);
        // Not equal to a default brush: the colours differ.
        QTest::newRow("no brush, but a colour") << QBrush(Qt::red, Qt::NoBrush) << QColor(Qt::red);
        QTest::newRow("no brush, black as by default")
            << QBrush(Qt::black, Qt::NoBrush) << QColor(0, 0, 0, 0);
    }

    void backgroundUsesTheColourOnly()
    {
        QFETCH(QBrush, background);
        QFETCH(QColor, fill);
        const KELTextPixmap pixmap(QString(), QSize(40, 30), Qt::black, background, QFont());
        QCOMPARE(pixmap.toImage().pixelColor(20, 15).alpha(), fill.alpha());
        const QPixmap expected = handDrawn(QString(), QSize(40, 30), Qt::black, fill, QFont());
        QCOMPARE(KelImage::difference(pixmap.toImage(), expected.toImage()), QString());
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
        QFETCH(QSize, size);
        const KELTextPixmap pixmap(u"Motor"_s, size, Qt::black, Qt::white, QFont());
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
        const QPixmap expected = handDrawn(u"Motor"_s, QSize(80, 40), Qt::black, Qt::white,
                                           fontOf(14));
        QCOMPARE(KelImage::difference(copy.toImage(), expected.toImage()), QString());
    }
};

KEL_TEST_MAIN(tst_KELTextPixmap)
#include "tst_keltextpixmap.moc"
