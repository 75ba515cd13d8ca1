// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "handdrawing.h"
#include "pinstage.h"
#include "stage.h"

#include <keltheme.h>

#include <QtGui/QPainterPath>

#include <cmath>

namespace {

const std::vector<Named> directions{{"left to right", Qt::LeftToRight},
                                    {"right to left", Qt::RightToLeft}};
const std::vector<Named> scales{{"1", 1}, {"2", 2}};
enum State { Empty, TwoDigits, LongPin, Pressed, Disabled, Restyled, NoCaption };
const std::vector<Named> states{{"no digits", Empty},       {"two digits", TwoDigits},
                                {"twelve digits", LongPin}, {"pressed", Pressed},
                                {"disabled", Disabled},     {"restyled", Restyled},
                                {"no caption", NoCaption}};

// Where a dialog with 8 px spacing and keys of at least 48 px stands in a view: the corner of what
// is inside its padding, and the sizes of that.
struct Place
{
    const char *name;
    QSize view;
    QPointF corner; // y is that without a caption, if that stands above the keypad
    qreal headWidth;
    QSizeF key;
};
const std::vector<Place> places{
    {"480 x 272", {480, 272}, {24, 24}, 190, {70, 50}},
    {"800 x 480", {800, 480}, {160, 84}, 232, {72, 72}},
    {"480 x 800", {480, 800}, {124, 229}, 232, {72, 72}},
    {"1280 x 800", {1280, 800}, {400, 244}, 232, {72, 72}},
};

// Draws it with the colours of its style.
class Sketch
{
public:
    Sketch(const PinStage &shown, const Place &drawnPlace, State drawnState) :
        stage(shown), place(drawnPlace), state(drawnState), style(*shown.dialog->partStyle())
    { }

    void draw(QPainter *painter) const
    {
        painter->fillRect(QRectF(QPointF(), place.view), QColor(0, 0, 0, 153));
        painter->setRenderHint(QPainter::Antialiasing);
        const qreal line = style.borderWidth;
        painter->setPen(QPen(style.borderBrush, line));
        painter->setBrush(style.backgroundBrush);
        const QRectF card = inner().adjusted(-16, -16, 16, 16);
        painter->drawRoundedRect(card.adjusted(line / 2, line / 2, -line / 2, -line / 2),
                                 style.radius, style.radius);
        drawHead(painter);
        const QString cells = isMirrored() ? u"123456789<0x"_s : u"123456789x0<"_s;
        for (int i = 0; i < cells.size(); ++i)
            drawKey(painter, cells.at(i), i);
    }

private:
    bool isWide() const { return place.view.width() > place.view.height(); }
    bool isMirrored() const { return stage.dialog->layoutDirection() == Qt::RightToLeft; }
    QBrush text() const { return state == Disabled ? style.disabledBrush : style.foregroundBrush; }
    qreal keypadWidth() const { return 3 * place.key.width() + 16; }
    qreal keypadHeight() const { return 4 * place.key.height() + 24; }

    qreal captionHeight() const
    {
        const QString caption = stage.dialog->caption();
        if (caption.isEmpty())
            return 0;
        return std::ceil(QFontMetricsF(style.font)
                             .boundingRect(QRectF(0, 0, place.headWidth, 1000),
                                           Qt::AlignCenter | Qt::TextWordWrap, caption)
                             .height());
    }
    // The caption, the gap below it, the dots.
    qreal headHeight() const { return captionHeight() + (captionHeight() > 0 ? 16 : 0) + 14; }

    QRectF inner() const
    {
        if (isWide())
            return QRectF(place.corner,
                          QSizeF(place.headWidth + 16 + keypadWidth(), keypadHeight()));
        const qreal added = headHeight() - 14;
        return QRectF(place.corner.x(), std::floor(place.corner.y() - added / 2), keypadWidth(),
                      keypadHeight() + 16 + headHeight());
    }

    void drawHead(QPainter *painter) const
    {
        const QRectF area = inner();
        const qreal left = isWide() && isMirrored() ? area.right() - place.headWidth : area.left();
        const qreal free = isWide() ? area.height() - headHeight() : 0;
        const QRectF box(left, area.top() + std::floor(free / 2), place.headWidth, headHeight());
        painter->setPen(QPen(text(), 1));
        painter->setFont(style.font);
        painter->drawText(QRectF(box.topLeft(), QSizeF(box.width(), captionHeight())),
                          Qt::AlignCenter | Qt::TextWordWrap, stage.dialog->caption());
        const int length = stage.dialog->pinLength();
        const qreal pitch = qMin<qreal>(28, box.width() / length);
        for (int i = 0; i < length; ++i) {
            const int fromLeft = isMirrored() ? length - 1 - i : i;
            const QPointF centre(box.center().x() + (fromLeft - (length - 1) / 2.0) * pitch,
                                 box.bottom() - 7);
            const bool isFilled = state != Empty && state != NoCaption && i < 2;
            painter->setPen(isFilled ? QPen(Qt::NoPen) : QPen(style.mutedBrush, 2));
            painter->setBrush(isFilled ? style.accentBrush : QBrush(Qt::NoBrush));
            const qreal radius = pitch / 4 - (isFilled ? 0 : 1);
            painter->drawEllipse(centre, radius, radius);
        }
    }

    void drawKey(QPainter *painter, QChar what, int cell) const
    {
        const qreal left = isWide() && isMirrored() ? inner().left()
                                                    : inner().right() - keypadWidth();
        const qreal top = inner().bottom() - keypadHeight();
        const QRectF rect(QPointF(left + cell % 3 * (place.key.width() + 8),
                                  top + cell / 3 * (place.key.height() + 8)),
                          place.key);
        painter->save();
        painter->translate(rect.topLeft());
        HandDrawing::setHints(painter);
        KELRoundRectControlStyle look = KELRoundRectControlStyle();
        look.xRadius = look.yRadius = style.radius * 2 / 3;
        if (what.isDigit()) {
            look.backgroundBrush = style.backgroundBrush;
            look.borderBrush = style.borderBrush;
            look.borderWidth = float(style.borderWidth);
        }
        if (state == Pressed && (what == u'5' || what == u'<'))
            look.backgroundBrush = style.pressedBrush;
        HandDrawing::drawShape(painter, look, QRectF(QPointF(), place.key));
        if (what.isDigit()) {
            QFont font = style.font;
            font.setPixelSize(int(place.key.height() * 0.4));
            painter->setFont(font);
            painter->setPen(QPen(text(), 1));
            painter->drawText(QRectF(QPointF(), place.key), Qt::AlignCenter, what);
        } else {
            drawGlyph(painter, what);
        }
        painter->restore();
    }

    // A picture, not smoothed when the view is scaled.
    void drawGlyph(QPainter *painter, QChar what) const
    {
        QPixmap pixmap(place.key.toSize());
        pixmap.fill(Qt::transparent);
        QPainter glyph(&pixmap);
        glyph.setRenderHint(QPainter::Antialiasing);
        glyph.setPen(QPen(text(), 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        glyph.translate(pixmap.width() / 2, pixmap.height() / 2);
        const qreal unit = qMin(place.key.width(), place.key.height()) / 8;
        const qreal forward = what == u'<' && isMirrored() ? -unit : unit;
        QPainterPath path;
        if (what == u'<') {
            path.addPolygon(QVector<QPointF>{{-2 * forward, 0},
                                             {-forward / 2, 1.5 * unit},
                                             {2 * forward, 1.5 * unit},
                                             {2 * forward, -1.5 * unit},
                                             {-forward / 2, -1.5 * unit},
                                             {-2 * forward, 0}});
            path.closeSubpath();
        }
        const qreal reach = what == u'<' ? unit / 2 : unit;
        const qreal x = what == u'<' ? forward * 2 / 3 : 0;
        path.moveTo(x - reach, -reach);
        path.lineTo(x + reach, reach);
        path.moveTo(x + reach, -reach);
        path.lineTo(x - reach, reach);
        glyph.drawPath(path);
        glyph.end();
        painter->setRenderHint(QPainter::SmoothPixmapTransform, false);
        painter->drawPixmap(0, 0, pixmap);
    }

    const PinStage &stage;
    const Place &place;
    const State state;
    const KELPartStyle &style;
};

void enter(State state, PinStage *stage)
{
    if (state != NoCaption)
        stage->dialog->setCaption(u"Enter the PIN of the installer"_s);
    if (state == LongPin)
        stage->dialog->setPinLength(12);
    if (state != Empty && state != NoCaption)
        stage->tapDigits(state == Pressed ? u"12"_s : u"34"_s);
    if (state == Disabled)
        stage->dialog->setEnabled(false);
    if (state != Restyled)
        return;
    KELPartStyle *style = stage->dialog->partStyle();
    style->backgroundBrush = QColor(20, 30, 40);
    style->foregroundBrush = Qt::white;
    style->borderBrush = Qt::yellow;
    style->accentBrush = Qt::green;
    style->mutedBrush = Qt::cyan;
    style->borderWidth = 3;
    style->radius = 21;
    style->font.setItalic(true);
    stage->dialog->styleChanged();
}

} // namespace

class tst_KELPinDialogPaint : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void isPaintedAsDocumented_data()
    {
        addRows({{"state", states},
                 {"place", namesOf(places)},
                 {"direction", directions},
                 {"scale", scales}},
                [](const std::vector<int> &row) {
                    // One place is enough for what has nothing to do with it.
                    return row[0] == TwoDigits ? row[1] == 0 || row[3] == 1
                                               : row[1] == 0 && row[3] == 1;
                });
    }

    void isPaintedAsDocumented()
    {
        const Place &place = places.at(fetch<size_t>("place"));
        const auto state = fetch<State>("state");
        PinStage stage(true, place.view);
        stage.dialog->setLayoutDirection(fetch<Qt::LayoutDirection>("direction"));
        enter(state, &stage);
        if (state == Pressed) {
            stage.hand.fingers().press(0, stage.centreOf(stage.removeKey()));
            stage.hand.fingers().press(1, stage.centreOf(stage.key(u'5')));
        }
        const qreal scale = fetch<int>("scale");
        const auto tree = [&](QPainter *painter) { KelImage::paintTree(painter, stage.dialog); };
        const Sketch sketch(stage, place, state);
        QCOMPARE(
            KelImage::difference(KelImage::draw(place.view, scale, tree),
                                 KelImage::draw(place.view, scale,
                                                [&](QPainter *painter) { sketch.draw(painter); })),
            QString());
    }

    void aThemeDressesTheKeysToo_data()
    {
        addRows({{"scheme",
                  {{"light", KELTheme::Light},
                   {"dark", KELTheme::Dark},
                   {"high contrast", KELTheme::HighContrast}}},
                 {"state", {{"pressed", Pressed}, {"disabled", Disabled}}}});
    }

    void aThemeDressesTheKeysToo()
    {
        const Place &place = places.front();
        const auto state = fetch<State>("state");
        PinStage stage(true, place.view);
        KELTheme theme;
        theme.applyTo(stage.dialog);
        theme.setScheme(fetch<KELTheme::Scheme>("scheme"));
        enter(state, &stage);
        if (state == Pressed) {
            stage.hand.fingers().press(0, stage.centreOf(stage.removeKey()));
            stage.hand.fingers().press(1, stage.centreOf(stage.key(u'5')));
        }
        const Sketch sketch(stage, place, state);
        QCOMPARE(
            KelImage::difference(
                KelImage::draw(
                    place.view, 1,
                    [&](QPainter *painter) { KelImage::paintTree(painter, stage.dialog); }),
                KelImage::draw(place.view, 1, [&](QPainter *painter) { sketch.draw(painter); })),
            QString());
    }

    void paintsNothingOutside_data() { addRows({{"place", namesOf(places)}, {"scale", scales}}); }

    void paintsNothingOutside()
    {
        PinStage stage(true, places.at(fetch<size_t>("place")).view);
        stage.dialog->setCaption(u"Entertheonlypinoftheinstallerwhohasnotbeenhere"_s);
        QCOMPARE(KelImage::pixelsOutside(stage.dialog, fetch<int>("scale")), QString());
    }

    void aKeyShowsItsPressInTheNextFrame()
    {
        PinStage stage;
        stage.hand.press(stage.centreOf(stage.key(u'5')));
        const QRect key = stage.view.mapFromScene(stage.key(u'5')->sceneBoundingRect())
                              .boundingRect();
        QCOMPARE(stage.view.grab().toImage().pixelColor(key.topLeft() + QPoint(10, 10)),
                 QColor(0xee, 0xee, 0xef));
    }
};

KEL_TEST_MAIN(tst_KELPinDialogPaint)
#include "tst_kelpindialogpaint.moc"
