// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "hand.h"
#include "handdrawing.h"
#include "handrow.h"

#include <kelmotion.h>

#include <limits>

namespace {

const std::vector<Named> ends = {{"no end", KELRow::NoEnd},
                                 {"switch", KELRow::Switch},
                                 {"radio", KELRow::Radio},
                                 {"value", KELRow::Value},
                                 {"arrow", KELRow::Arrow}};
const std::vector<Named> directions = {{"left to right", false}, {"right to left", true}};
const std::vector<Named> onOrOff = {{"off", false}, {"on", true}};

const std::vector<Named> cards = {{"no card", KELRow::NoCard},
                                  {"first", KELRow::CardTop},
                                  {"between", KELRow::CardMiddle},
                                  {"last", KELRow::CardBottom},
                                  {"alone", KELRow::WholeCard}};

const std::vector<Named> widths = {{"0 px", 0},   {"1 px", 1},     {"30 px", 30},
                                   {"90 px", 90}, {"200 px", 200}, {"800 px", 800}};

// Of the font of tests.
const QString fullGlyph(QChar(0xe000)); // the whole em square
const QString leftGlyph(QChar(0xe001)); // its left half

struct Content
{
    const char *name;
    QString caption;
    QString detail;
    QString value;
    QString glyph;
};

const std::vector<Content> contents = {
    {"nothing", {}, {}, {}, {}},
    {"caption", u"Brightness"_s, {}, {}, {}},
    {"detail", {}, u"From sunset to sunrise"_s, {}, {}},
    {"value", {}, {}, u"70 %"_s, {}},
    {"two lines and glyph", u"Dark at night"_s, u"From sunset to sunrise"_s, {}, leftGlyph},
    {"everything", u"Lock after"_s, u"Asked for before"_s, u"5 minutes"_s, leftGlyph},
    {"long caption", QString(30, u'M'), QString(60, u'n'), u"short"_s, {}},
    {"long value", u"short"_s, {}, QString(60, u'w'), {}},
    {"both long", QString(30, u'M'), {}, QString(60, u'w'), fullGlyph},
    {"from right to left", u"\u0634\u0628\u0643\u0629 Wi-Fi"_s, u"\u05e9\u05dc\u05d5\u05dd"_s,
     u"\u0645\u062a\u0635\u0644"_s, leftGlyph}};

HandRow rowWith(const Content &content)
{
    HandRow row;
    row.caption = content.caption;
    row.detail = content.detail;
    row.value = content.value;
    row.glyph = content.glyph;
    return row;
}

HandRow usualRow(KELRow::End end)
{
    HandRow row = rowWith(contents[5]);
    row.end = end;
    return row;
}

// Empty when the row paints what the hand draws, at scales 1 and 2, once and again.
QString differenceOf(const HandRow &hand, KELRow *row)
{
    QString difference;
    const auto draw = [&hand](QPainter *painter) { hand.draw(painter); };
    for (const qreal scale : {1.0, 2.0, 1.0})
        difference += KelImage::differenceFrom(draw, row, hand.size.toSize(), scale);
    return difference;
}

QString differenceOf(const HandRow &hand)
{
    const std::unique_ptr<KELRow> row(newRow(hand));
    return differenceOf(hand, row.get());
}

} // namespace

class tst_KELRowPaint : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { KELIconFont::installFont(besideProgram(u"icons.ttf"_s)); }

    void isTheHandDrawnPicture_data()
    {
        addRows({{"content", namesOf(contents)}, {"end", ends}, {"mirrored", directions}});
    }

    void isTheHandDrawnPicture()
    {
        HandRow hand = rowWith(contents[fetch<size_t>("content")]);
        hand.end = fetch<KELRow::End>("end");
        hand.isMirrored = fetch<bool>("mirrored");
        QCOMPARE(differenceOf(hand), QString());
    }

    void showsItsState_data()
    {
        addRows({{"end", ends},
                 {"on", onOrOff},
                 {"enabled", {{"disabled", false}, {"enabled", true}}},
                 {"mirrored", directions}});
    }

    void showsItsState()
    {
        HandRow hand = usualRow(fetch<KELRow::End>("end"));
        hand.isOn = fetch<bool>("on");
        hand.isEnabled = fetch<bool>("enabled");
        hand.isMirrored = fetch<bool>("mirrored");
        QCOMPARE(differenceOf(hand), QString());
    }

    // What is kept from the paint before does not stay.
    void showsEachChange()
    {
        HandRow hand = usualRow(KELRow::Switch);
        const std::unique_ptr<KELRow> row(newRow(hand));
        QCOMPARE(differenceOf(hand, row.get()), QString());
        row->setChecked(hand.isOn = true);
        QCOMPARE(differenceOf(hand, row.get()), QString());
        row->setCaption(hand.caption = u"Another one"_s);
        QCOMPARE(differenceOf(hand, row.get()), QString());
        row->setDetail(hand.detail = QString());
        row->setValue(hand.value = u"2"_s);
        QCOMPARE(differenceOf(hand, row.get()), QString());
        row->setGlyph(KELIconFont(fullGlyph.at(0).unicode()));
        hand.glyph = fullGlyph;
        row->setEnd(hand.end = KELRow::Radio);
        QCOMPARE(differenceOf(hand, row.get()), QString());
        row->setEnabled(hand.isEnabled = false);
        QCOMPARE(differenceOf(hand, row.get()), QString());
    }

    void usesTheStyle_data()
    {
        addRows({{"end", ends}, {"on", onOrOff}, {"enabled", {{"disabled", 0}, {"enabled", 1}}}});
    }

    void usesTheStyle()
    {
        HandRow hand = usualRow(fetch<KELRow::End>("end"));
        hand.isOn = fetch<bool>("on");
        hand.isEnabled = fetch<bool>("enabled");
        const std::unique_ptr<KELRow> row(newRow(hand));
        KelImage::paint(row.get(), hand.size.toSize());
        row->partStyle()->trackBrush = hand.style.trackBrush = QColor(0, 90, 200);
        QCOMPARE(differenceOf(hand, row.get()), QString());
        row->partStyle()->knobBrush = hand.style.knobBrush = QColor(200, 0, 0);
        row->partStyle()->iconSize = hand.style.iconSize = 32;
        QCOMPARE(differenceOf(hand, row.get()), QString());
        hand.style.backgroundBrush = QColor(1, 2, 3);
        hand.style.foregroundBrush = QColor(255, 0, 0);
        hand.style.mutedBrush = QColor(0, 255, 0);
        hand.style.disabledBrush = QColor(90, 90, 120);
        hand.style.borderBrush = QColor(255, 0, 255);
        hand.style.accentBrush = QColor(255, 255, 0);
        hand.style.accentForegroundBrush = QColor(0, 0, 90);
        hand.style.trackBrush = QColor(0, 90, 90);
        hand.style.knobBrush = QColor(90, 0, 0);
        hand.style.font.setPixelSize(20);
        hand.style.secondaryFont.setItalic(true);
        *row->partStyle() = hand.style;
        row->styleChanged();
        QCOMPARE(differenceOf(hand, row.get()), QString());
    }

    void gradientsAreNotKept()
    {
        HandRow hand = usualRow(KELRow::Switch);
        hand.style.trackBrush = HandDrawing::gradient();
        QCOMPARE(differenceOf(hand), QString());
        hand.style.trackBrush = Qt::gray;
        hand.style.knobBrush = HandDrawing::gradient();
        QCOMPARE(differenceOf(hand), QString());
        const std::unique_ptr<KELRow> row(newRow(hand));
        QCOMPARE(differenceOf(hand, row.get()), QString());
        hand.size.setWidth(370);
        row->resize(hand.size);
        QCOMPARE(differenceOf(hand, row.get()), QString());
        std::swap(hand.style.trackBrush, hand.style.knobBrush);
        *row->partStyle() = hand.style;
        QCOMPARE(differenceOf(hand, row.get()), QString());
        hand.size.setWidth(400);
        row->resize(hand.size);
        QCOMPARE(differenceOf(hand, row.get()), QString());
    }

    // A mark between two pixels is not moved to a whole one.
    void isInPlaceBetweenPixels_data() { addRows({{"end", ends}}); }

    void isInPlaceBetweenPixels()
    {
        HandRow hand;
        hand.end = fetch<KELRow::End>("end");
        const std::unique_ptr<KELRow> row(newRow(hand));
        const auto drawn = [&](const KelImage::Drawing &draw) {
            return KelImage::draw(hand.size.toSize(), 1, [&](QPainter *painter) {
                painter->translate(0.5, 0.25);
                draw(painter);
            });
        };
        const QImage actual = drawn([&](QPainter *p) { row->paint(p, nullptr); });
        QCOMPARE(KelImage::difference(actual, drawn([&](QPainter *p) { hand.draw(p); })),
                 QString());
    }

    void anotherIconFontIsSeen()
    {
        HandRow hand = usualRow(KELRow::NoEnd);
        const std::unique_ptr<KELRow> row(newRow(hand));
        QCOMPARE(differenceOf(hand, row.get()), QString());
        const QString family = std::exchange(KELIconFont::g_fontFamily, QFont().family());
        const QString difference = differenceOf(hand, row.get());
        KELIconFont::g_fontFamily = family;
        QCOMPARE(difference, QString());
    }

    void isElidedAtEveryWidth_data()
    {
        addRows({{"width",
                  {{"40 px", 40},
                   {"62 px", 62},
                   {"94 px", 94},
                   {"120 px", 120},
                   {"240 px", 240},
                   {"480 px", 480}}},
                 {"end", ends}});
    }

    void isElidedAtEveryWidth()
    {
        HandRow hand = rowWith(contents[8]);
        hand.end = fetch<KELRow::End>("end");
        hand.size.setWidth(fetch<int>("width"));
        QCOMPARE(differenceOf(hand), QString());
    }

    void pressedInTheNextFrame_data() { addRows({{"input", inputs}}); }

    void pressedInTheNextFrame()
    {
        HandRow hand = usualRow(KELRow::Arrow);
        KelTestView view;
        KELRow *row = newRow(hand);
        view.ownScene.addItem(row);
        Hand finger(&view, fetch<Input>("input"));
        finger.press(QPoint(50, 30));
        hand.isPressed = true;
        QCOMPARE(differenceOf(hand, row), QString());
        finger.release();
        hand.isPressed = false;
        QCOMPARE(differenceOf(hand, row), QString());
    }

    void isAPartOfACard_data() { addRows({{"card", cards}, {"mirrored", directions}}); }

    void isAPartOfACard()
    {
        HandRow hand = usualRow(KELRow::Arrow);
        hand.card = fetch<KELRow::Card>("card");
        hand.isMirrored = fetch<bool>("mirrored");
        const std::unique_ptr<KELRow> row(newRow(hand));
        QCOMPARE(differenceOf(hand, row.get()), QString());
        QCOMPARE(KelImage::pixelsOutside(row.get()), QString());
        row->setSeparator(hand.hasSeparator = false);
        QCOMPARE(differenceOf(hand, row.get()), QString());
    }

    void theRingShowsTheFocusOfKeys_data() { addRows({{"card", cards}}); }

    void theRingShowsTheFocusOfKeys()
    {
        HandRow hand = usualRow(KELRow::Radio);
        hand.card = fetch<KELRow::Card>("card");
        KelTestView view;
        KELRow *row = newRow(hand);
        view.ownScene.addItem(row);
        QVERIFY(view.showAndWait());
        row->setFocus(Qt::MouseFocusReason);
        QCOMPARE(differenceOf(hand, row), QString());
        QTest::keyClick(view.viewport(), Qt::Key_F1);
        hand.isFocusShown = true;
        QCOMPARE(differenceOf(hand, row), QString());
    }

    void aNarrowRowHasNoRing_data() { addRows({{"card", cards}}); }

    void aNarrowRowHasNoRing()
    {
        HandRow hand;
        hand.size.setWidth(1);
        hand.card = fetch<KELRow::Card>("card");
        KelTestView view;
        KELRow *row = newRow(hand);
        view.ownScene.addItem(row);
        QVERIFY(view.showAndWait());
        row->setFocus(Qt::TabFocusReason);
        QCOMPARE(KelImage::pixelsOutside(row), QString());
    }

    void aPictureIsDrawnInsteadOfTheGlyph_data()
    {
        addRows({{"side", {{"small", 12}, {"as large", 24}, {"larger", 48}}},
                 {"enabled", {{"disabled", 0}, {"enabled", 1}}}});
    }

    void aPictureIsDrawnInsteadOfTheGlyph()
    {
        HandRow hand = usualRow(KELRow::NoEnd);
        hand.isEnabled = fetch<bool>("enabled");
        hand.picture = QPixmap(fetch<int>("side"), fetch<int>("side"));
        hand.picture.fill(Qt::red);
        QPainter(&hand.picture).fillRect(0, 0, 5, 7, Qt::blue);
        QCOMPARE(differenceOf(hand), QString());
    }

    void hasNoSeparatorIfNotWanted()
    {
        HandRow hand = usualRow(KELRow::Arrow);
        hand.hasSeparator = false;
        QCOMPARE(differenceOf(hand), QString());
    }

    void whiteSpaceIsBlanks()
    {
        HandRow hand = usualRow(KELRow::Arrow);
        hand.caption = u"two\nlines \tand more "_s;
        const std::unique_ptr<KELRow> row(newRow(hand));
        hand.caption = u"two lines and more"_s;
        QCOMPARE(differenceOf(hand, row.get()), QString());
    }

    void aTextIsNoMarkup()
    {
        HandRow hand = usualRow(KELRow::Arrow);
        hand.caption = u"<b>1 & 2</b>"_s;
        QCOMPARE(differenceOf(hand), QString());
    }

    void staysInside_data()
    {
        addRows({{"width", widths},
                 {"end", ends},
                 {"fonts", {{"usual fonts", 16}, {"huge fonts", 200}}},
                 {"mirrored", directions}});
    }

    void staysInside()
    {
        HandRow hand = usualRow(fetch<KELRow::End>("end"));
        hand.size.setWidth(fetch<int>("width"));
        hand.style.font.setPixelSize(fetch<int>("fonts"));
        hand.style.font.setItalic(true);
        hand.style.iconSize = fetch<int>("fonts");
        hand.isMirrored = fetch<bool>("mirrored");
        const std::unique_ptr<KELRow> row(newRow(hand));
        QCOMPARE(KelImage::pixelsOutside(row.get()), QString());
        row->partStyle()->margins = QMarginsF();
        QCOMPARE(KelImage::pixelsOutside(row.get()), QString());
    }

    void numbersThatAreNone_data()
    {
        addRows({{"end", ends}, {"number", {{"NaN", 0}, {"infinite", 1}, {"negative", 2}}}});
    }

    void numbersThatAreNone()
    {
        const qreal numbers[] = {qQNaN(), qInf(), -5};
        const qreal number = numbers[fetch<int>("number")];
        HandRow hand = usualRow(fetch<KELRow::End>("end"));
        const std::unique_ptr<KELRow> row(newRow(hand));
        KELPartStyle *style = row->partStyle();
        style->margins = QMarginsF(number, number, number, number);
        style->spacing = number;
        style->radius = number;
        style->rowHeight = number;
        style->borderWidth = qIsInf(number) ? 0 : number;
        style->iconSize = -1;
        row->styleChanged();
        QCOMPARE(KelImage::pixelsOutside(row.get()), QString());
        QVERIFY(row->effectiveSizeHint(Qt::PreferredSize).width() < 1000);
        row->setCard(KELRow::WholeCard);
        QCOMPARE(KelImage::pixelsOutside(row.get()), QString());
        QCOMPARE(KelImage::inkOf(KelImage::paint(row.get(), QSize(500, 64))), QRect(0, 0, 400, 64));
    }
};

KEL_TEST_MAIN(tst_KELRowPaint)
#include "tst_kelrowpaint.moc"
