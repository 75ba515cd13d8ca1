// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "keltest.h"
#include "rows.h"
#include "styling.h"

#include <KELLabel>
#include <KELNavigationTable>
#include <KELPushButton>

#include <QtGui/QPainter>

// The code of docs/guide/styling.md does what the page says.
class tst_GuideStyling : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void aStateHasItsLook_data()
    {
        QTest::addColumn<bool>("isPressed");
        QTest::addColumn<bool>("isChecked");
        QTest::addColumn<bool>("isEnabled");
        QTest::addColumn<QColor>("background");
        QTest::newRow("pressed") << true << false << true << QColor(24, 60, 100);
        QTest::newRow("checked") << false << true << true << QColor(Qt::white);
        QTest::newRow("pressed and checked") << true << true << true << QColor(24, 60, 100);
        QTest::newRow("disabled") << false << true << false << QColor(70, 84, 102);
    }

    void aStateHasItsLook()
    {
        QFETCH(QColor, background);
        KELPushButton button;
        button.setboundRect(0, 0, 100, 40);
        giveLooks(&button);
        button.style()->isMouseDown = *static_cast<bool *>(
            QTest::qData("isPressed", QMetaType::Bool));
        button.setCheck(*static_cast<bool *>(QTest::qData("isChecked", QMetaType::Bool)));
        button.setEnabled(*static_cast<bool *>(QTest::qData("isEnabled", QMetaType::Bool)));
        QCOMPARE(KelImage::paint(&button, QSize(100, 40)).pixelColor(10, 20), background);
    }

    void disabledIsFaded()
    {
        KELLabel label;
        fadeWhenDisabled(&label);
        label.setEnabled(false);
        QCOMPARE(label.opacity(), 0.4);
        label.setEnabled(true);
        QCOMPARE(label.opacity(), 1.0);
    }

    void pictureAndCaptionAreCentred()
    {
        KELPushButton button;
        button.setboundRect(0, 0, 90, 100);
        button.setText(u"Start"_s);
        button.style()->foregroundBrush = QColor(Qt::blue);
        button.style()->pixmap = filled(Qt::red);
        button.style()->borderWidth = 0;
        button.style()->iconSize = 40;
        centrePair(&button);
        const QImage picture = KelImage::paint(&button, QSize(90, 100));
        const QRect red = KelImage::areaOf(picture, Qt::red);
        const int lineHeight = QFontMetrics(button.style()->font).height();
        QVERIFY(qAbs(red.height() - 40) <= 1);
        const qreal edge = (100 - 40 - 6 - lineHeight) / 2.0;
        QVERIFY(qAbs(red.top() - edge) <= 1);

        const QRect ink = textIn(picture, Qt::blue);
        QVERIFY(ink.top() >= red.bottom() + 6);
        QVERIFY(ink.bottom() <= 100 - edge);
    }

    void glyphAndCaptionOfATabAreCentred()
    {
        KELNavigationTable table;
        table.setboundRect(0, 0, 240, 200);
        table.style()->font.setPixelSize(14);
        KELNavigationTableItem *const page = addPages(&table);
        centreTabs(&table);
        const qreal lineHeight = QFontMetrics(table.style()->font).height();
        const qreal edge = (80 - page->style()->iconSize - 6 - lineHeight) / 2;

        page->setText(u" "_s);
        page->style()->icon = KELIconFont(fullBlock);
        const QRect glyph = textIn(tabOf(&table), Qt::blue);
        QVERIFY(qAbs(glyph.center().y() - (edge + page->style()->iconSize / 2.0)) <= 2);
        page->setText(QString(QChar(fullBlock)));
        page->style()->icon = KELIconFont(' ');
        const QRect caption = textIn(tabOf(&table), Qt::blue);
        QVERIFY(qAbs(caption.bottom() - (80 - edge)) <= 2);
        QVERIFY(qAbs(caption.top() - (80 - edge - lineHeight)) <= 2);
    }

    void theShadeBeginsAtTheCorner()
    {
        KELPushButton button;
        button.setboundRect(30, 20, 60, 60);
        button.style()->borderWidth = 0;
        shade(&button);
        const QImage picture = KelImage::paint(&button, QSize(120, 100));
        QVERIFY(isNear(picture.pixelColor(60, 20), QColor(84, 140, 200)));
        QVERIFY(isNear(picture.pixelColor(60, 79), QColor(36, 76, 120)));
    }

    void aShadeStretchedOverAButtonIsMovedByItsCorner_data()
    {
        QTest::addColumn<QPointF>("corner");
        QTest::addColumn<bool>("fits");
        QTest::newRow("(0, 0)") << QPointF(0, 0) << true;
        QTest::newRow("elsewhere") << QPointF(0, 40) << false;
    }

    void aShadeStretchedOverAButtonIsMovedByItsCorner()
    {
        KELPushButton button;
        QFETCH(bool, fits);
        QCOMPARE(isStretched(&button, fetch<QPointF>("corner")), fits);
    }

    void aShadeStretchedOverALabelFits()
    {
        KELLabel label;
        QVERIFY(isStretched(&label, QPointF(0, 0)));
        QVERIFY(isStretched(&label, QPointF(0, 40)));
    }

    void theShadeOfACaptionBeginsAtTheItem()
    {
        KELPushButton button;
        button.setboundRect(0, 40, 60, 60);
        button.setText(QString(QChar(fullBlock)));
        button.style()->font.setPixelSize(30);
        button.style()->foregroundBrush = fromRedToBlue(100);
        const QImage picture = KelImage::paint(&button, QSize(60, 100));
        QVERIFY(isNear(picture.pixelColor(30, 70), QColor(75, 0, 180)));
    }

    void theShadeOfATabBeginsAtItsCornerAndThatOfItsCaptionAtTheItem()
    {
        KELNavigationTable table;
        table.setboundRect(0, 0, 240, 200);
        table.style()->font.setPixelSize(30);
        KELNavigationTableItem *const page = addPages(&table);
        page->setButtonBackground(fromRedToBlue(80));
        page->setButtonForeground(fromRedToBlue(200));
        page->setText(QString(QChar(fullBlock)));
        const QImage tab = tabOf(&table);
        QVERIFY(isNear(tab.pixelColor(5, 0), QColor(253, 0, 2)));
        QVERIFY(isNear(tab.pixelColor(5, 79), QColor(2, 0, 253)));
        QVERIFY(isNear(tab.pixelColor(60, 40), QColor(50, 0, 205)));
    }

private:
    static QBrush fromRedToBlue(qreal height)
    {
        QLinearGradient shade(0, 0, 0, height);
        shade.setColorAt(0, Qt::red);
        shade.setColorAt(1, Qt::blue);
        return shade;
    }

    // Whether it ends where the control ends.
    static bool isStretched(KELRoundRectControl *control, const QPointF &corner)
    {
        QLinearGradient shade(0, 0, 0, 1);
        shade.setCoordinateMode(QGradient::ObjectBoundingMode);
        shade.setColorAt(0, Qt::red);
        shade.setColorAt(1, Qt::blue);
        control->setboundRect(QRectF(corner, QSizeF(60, 60)));
        control->style()->borderWidth = 0;
        control->style()->backgroundBrush = shade;
        const QImage picture = KelImage::paint(control, QSize(60, 100));
        const int top = int(corner.y());
        return isNear(picture.pixelColor(30, top), QColor(253, 0, 2))
            && isNear(picture.pixelColor(30, top + 59), QColor(2, 0, 253));
    }

    static constexpr ushort fullBlock = 0x2588; // fills its line

    static QImage tabOf(KELNavigationTable *table)
    {
        return KelImage::paint(table, QSize(240, 200)).copy(0, 120, 120, 80);
    }

    static QPixmap filled(const QColor &colour)
    {
        QPixmap pixmap(8, 8);
        pixmap.fill(colour);
        return pixmap;
    }

    static bool isNear(const QColor &one, const QColor &other)
    {
        return qAbs(one.red() - other.red()) <= 3 && qAbs(one.green() - other.green()) <= 3
            && qAbs(one.blue() - other.blue()) <= 3;
    }

    // Blue on something lighter.
    static QRect textIn(const QImage &picture, const QColor &colour)
    {
        QRect area;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                const QColor pixel = picture.pixelColor(x, y);
                if (pixel.blue() > 150 && pixel.red() < 100 && colour.blue() == 255)
                    area |= QRect(x, y, 1, 1);
            }
        }
        return area;
    }

    static KELNavigationTableItem *addPages(KELNavigationTable *table)
    {
        KELNavigationTableItem *first = nullptr;
        for (const char16_t *title : {u"Home", u"Setup"}) {
            auto *const page = new KELNavigationTableItem;
            page->setText(QString::fromUtf16(title));
            page->setButtonBackground(QColor(Qt::white));
            page->setButtonForeground(QColor(Qt::blue));
            table->addItem(page);
            if (!first)
                first = page;
        }
        return first;
    }
};

KEL_TEST_MAIN(tst_GuideStyling)
#include "tst_guidestyling.moc"
