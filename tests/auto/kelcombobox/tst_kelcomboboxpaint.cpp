// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "combostage.h"
#include "handdrawing.h"

#include <QtGui/QPainterPath>

namespace {

const QSize canvas(330, 260);
constexpr qreal scales[] = {0.5, 1, 1.5, 2};

const QRectF usual(20, 20, 160, 40);
const QRectF boxRects[] = {usual, QRectF(10, 8, 300, 60), QRectF(30, 30, 64, 24),
                           QRectF(15, 25, 90, 31)};
const std::vector<Named> sizes = {{"160 x 40", 0}, {"300 x 60", 1}, {"64 x 24", 2}, {"90 x 31", 3}};

enum class State { Closed, ClosedPressed, Open, OpenEntryPressed, Disabled, OpenDisabled, Enabled };
const std::vector<Named> states = {{"closed", int(State::Closed)},
                                   {"closed, button pressed", int(State::ClosedPressed)},
                                   {"open", int(State::Open)},
                                   {"open, entry pressed", int(State::OpenEntryPressed)},
                                   {"disabled", int(State::Disabled)},
                                   {"open and disabled", int(State::OpenDisabled)},
                                   {"enabled again", int(State::Enabled)}};

bool isOpen(State state)
{
    return state == State::Open || state == State::OpenEntryPressed || state == State::OpenDisabled;
}

bool isDisabled(State state)
{
    return state == State::Disabled || state == State::OpenDisabled;
}

void setCacheModes(QGraphicsItem *item, QGraphicsItem::CacheMode mode)
{
    item->setCacheMode(mode);
    const QList<QGraphicsItem *> children = item->childItems();
    for (QGraphicsItem *child : children)
        setCacheModes(child, mode);
}

// A combo box in a scene that repaints it each time.
class Picture
{
public:
    explicit Picture(const QRectF &rect = usual) : box(makeBox({}, rect).release())
    {
        scene.addItem(box);
    }
    explicit Picture(State state, const QRectF &rect = usual) : Picture(rect)
    {
        addEntries(box, threeTexts);
        box->setSelectIndex(1);
        if (isOpen(state))
            clickButton(*box);
        ComboParts(*box).button->style()->isMouseDown = state == State::ClosedPressed;
        box->items().at(2)->style()->isMouseDown = state == State::OpenEntryPressed;
        if (isDisabled(state) || state == State::Enabled)
            box->setEnabled(false);
        if (state == State::Enabled)
            box->setEnabled(true);
    }

    QImage render(qreal scale = 1)
    {
        setCacheModes(box, QGraphicsItem::NoCache);
        return KelImage::draw(canvas, scale, [&](QPainter *painter) {
            scene.render(painter, QRectF(QPointF(), canvas), QRectF(QPointF(), canvas));
        });
    }

    QGraphicsScene scene;
    KELComboBox *const box;
};

// The same, drawn step by step.
class Drawing
{
public:
    explicit Drawing(State state, const QRectF &rect = usual) : m_rect(rect), m_state(state) { }

    QString text = threeTexts.at(1);
    QStringList entries = threeTexts;

    QImage render(qreal scale = 1) const
    {
        return KelImage::draw(canvas, scale, [this](QPainter *painter) {
            const QColor labels = isDisabled(m_state) ? QColor(170, 170, 180, 200) : Qt::white;
            drawShape(painter, m_rect, m_state == State::ClosedPressed,
                      isDisabled(m_state) ? QColor(150, 150, 150, 100) : Qt::white, 1.5F);
            drawLabel(painter, m_rect.adjusted(0, 0, -30, 0), text, labels);
            drawLabel(painter, QRectF(m_rect.right() - 25, m_rect.y(), 25, m_rect.height()),
                      isOpen(m_state) ? u"▲"_s : u"▼"_s, labels);
            if (isOpen(m_state))
                drawList(painter);
        });
    }

private:
    // Of the button and of an entry, which are cut to their rectangle.
    static void drawShape(QPainter *painter, const QRectF &rect, bool isPressed,
                          const QBrush &border, float borderWidth)
    {
        QPainterPath path;
        path.addRect(rect);
        KELRoundRectControlStyle style = KELRoundRectControlStyle();
        style.backgroundBrush = isPressed ? QBrush(QColor(50, 70, 100, 200)) : QBrush(Qt::NoBrush);
        style.borderBrush = border;
        style.borderWidth = borderWidth;
        painter->save();
        painter->setClipPath(path, Qt::IntersectClip);
        HandDrawing::setHints(painter);
        HandDrawing::drawShape(painter, style, rect);
        painter->restore();
    }

    static void drawLabel(QPainter *painter, const QRectF &rect, const QString &text,
                          const QColor &colour)
    {
        KELRoundRectControlStyle style = KELRoundRectControlStyle();
        style.textFlags = Qt::AlignCenter | Qt::TextWordWrap;
        style.foregroundBrush = colour;
        painter->save();
        HandDrawing::setHints(painter);
        HandDrawing::drawCaption(painter, style, rect,
                                 HandDrawing::elided(text, rect.width(), style.font));
        painter->restore();
    }

    void drawList(QPainter *painter) const
    {
        KELRoundRectControlStyle style = KELRoundRectControlStyle();
        style.backgroundBrush = QColor(4, 4, 18, 240);
        style.borderBrush = QColor(Qt::white);
        style.borderWidth = 1;
        const qreal height = entries.isEmpty() ? 5 : 30 * entries.size();
        const QRectF list(m_rect.x(), m_rect.bottom() - 1, m_rect.width(), height);
        painter->save();
        HandDrawing::setHints(painter);
        HandDrawing::drawShape(painter, style, list);
        painter->restore();
        for (int n = 0; n < entries.size(); ++n) {
            const QRectF entry(list.x() + 0.5, list.y() + 30 * n, list.width() - 1, 30);
            drawShape(painter, entry, m_state == State::OpenEntryPressed && n == 2, Qt::NoBrush, 0);
            drawLabel(painter, entry, entries.at(n), Qt::white);
        }
    }

    const QRectF m_rect;
    const State m_state;
};

} // namespace

class tst_KELComboBoxPaint : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void looksAsDrawnByHand_data() { addRows({{"state", states}, {"size", sizes}}); }

    void looksAsDrawnByHand()
    {
        const QRectF &rect = boxRects[fetch<int>("size")];
        Picture picture(fetch<State>("state"), rect);
        const Drawing drawing(fetch<State>("state"), rect);
        for (const qreal scale : scales)
            QCOMPARE(KelImage::difference(picture.render(scale), drawing.render(scale)), QString());
    }

    void emptyBox_data() { addRows({{"isOpen", closedOrOpen}}); }

    void emptyBox()
    {
        Picture picture;
        if (fetch<bool>("isOpen"))
            clickButton(*picture.box);
        Drawing drawing(fetch<bool>("isOpen") ? State::Open : State::Closed);
        drawing.text.clear();
        drawing.entries.clear();
        for (const qreal scale : scales)
            QCOMPARE(KelImage::difference(picture.render(scale), drawing.render(scale)), QString());
    }

    void entryAddedToTheOpenList()
    {
        Picture picture(State::Open);
        picture.box->addItem(4, u"an entry whose text is much wider than the box"_s);
        Drawing drawing(State::Open);
        drawing.entries.append(picture.box->items().last()->display());
        QCOMPARE(KelImage::difference(picture.render(), drawing.render()), QString());
    }

    void removedEntryLeavesAGap()
    {
        Picture picture(State::Open);
        const QImage before = picture.render();
        delete picture.box->items().at(0);
        const QImage after = picture.render();
        // the second row is as it was, the first one empty, the third one below the list
        const QRect second(25, 92, 150, 25);
        QCOMPARE(KelImage::difference(after.copy(second), before.copy(second)), QString());
        const QImage gap = after.copy(25, 62, 150, 25);
        QImage plain(gap.size(), gap.format());
        plain.fill(gap.pixelColor(0, 0));
        QCOMPARE(KelImage::difference(gap, plain), QString());
        QVERIFY(after.copy(25, 122, 150, 25) != before.copy(25, 122, 150, 25));
    }

    void listIsAbovePartsOfEarlierNeighbours()
    {
        Picture picture(State::Open);
        auto *neighbour = picture.scene.addRect(20, 70, 160, 40, QPen(Qt::red), Qt::red);
        neighbour->stackBefore(picture.box);
        // the list is not opaque: some red comes through
        QVERIFY(picture.render().pixelColor(30, 75).red() < 50);
        clickButton(*picture.box);
        QCOMPARE(picture.render().pixelColor(30, 75), QColor(Qt::red));
    }

    void nothingOutsideBoxAndList_data() { looksAsDrawnByHand_data(); }

    void nothingOutsideBoxAndList()
    {
        QRectF allowed = boxRects[fetch<int>("size")];
        Picture picture(fetch<State>("state"), allowed);
        if (isOpen(fetch<State>("state")))
            allowed.setBottom(allowed.bottom() - 1 + 90);
        for (const qreal scale : scales) {
            // An outline thinner than a pixel is drawn as one pixel.
            const int slack = scale < 1 ? 1 : 0;
            const QRect kept = QRectF(allowed.topLeft() * scale, allowed.size() * scale)
                                   .toAlignedRect()
                                   .adjusted(-slack, -slack, slack, slack);
            QImage actual = picture.render(scale);
            QImage blank = KelImage::blank(canvas, scale);
            QVERIFY(actual != blank);
            QPainter(&actual).fillRect(kept, Qt::white);
            QPainter(&blank).fillRect(kept, Qt::white);
            QCOMPARE(KelImage::difference(actual, blank), QString());
        }
    }

    void closedListIsNotPainted()
    {
        Picture picture(State::Closed);
        const QImage closed = picture.render();
        clickButton(*picture.box);
        QVERIFY(picture.render() != closed);
        clickButton(*picture.box);
        QCOMPARE(KelImage::difference(picture.render(), closed), QString());
    }

    void movedListIsReportedWhereItWas_data()
    {
        addRows({{"fourNumbers", {{"by a rectangle", false}, {"by four numbers", true}}}});
    }

    // To an application that draws the scene itself.
    void movedListIsReportedWhereItWas()
    {
        QGraphicsScene scene;
        KELComboBox *const box = makeBox().release();
        scene.addItem(box);
        clickButton(*box);
        QCoreApplication::processEvents();
        QRegion changed;
        connect(&scene, &QGraphicsScene::changed, this, [&](const QList<QRectF> &rects) {
            for (const QRectF &rect : rects)
                changed += rect.toAlignedRect();
        });
        const QPoint inList = ComboParts(*box).panel->sceneBoundingRect().center().toPoint();
        if (fetch<bool>("fourNumbers"))
            box->setboundRect(220, 20, 160, 40);
        else
            box->setboundRect(QRectF(220, 20, 160, 40));
        QTRY_VERIFY(!changed.isEmpty());
        QVERIFY(changed.contains(inList));
    }

    void partsStayInside()
    {
        Picture picture(State::OpenEntryPressed);
        const ComboParts parts(*picture.box);
        const QList<QGraphicsItem *> all = {parts.button,
                                            parts.text,
                                            parts.arrow,
                                            parts.panel,
                                            picture.box,
                                            picture.box->items().at(2),
                                            labelOf(picture.box->items().at(2))};
        for (QGraphicsItem *part : all) {
            for (const qreal scale : {1.0, 1.5, 2.0})
                QCOMPARE(KelImage::pixelsOutside(part, scale), QString());
        }
    }

    void cachedPictureInAView_data() { addRows({{"indexMethod", indexMethods}}); }

    // What a window shows, with the caches of the items, is what is painted without them.
    void cachedPictureInAView()
    {
        ComboStage stage(Input::Mouse, fetch<int>("indexMethod"));
        stage.view.setBackgroundBrush(Qt::darkCyan);
        for (int round = 0; round < 2; ++round) {
            stage.open();
            const QImage cached = shownPicture(stage.view);
            setCacheModes(stage.control, QGraphicsItem::NoCache);
            stage.view.viewport()->update();
            const QImage direct = shownPicture(stage.view);
            setCacheModes(stage.control,
                          QGraphicsItem::DeviceCoordinateCache); // as controls are made
            // inside the outlines and beside the texts, where nothing is smoothed
            for (const QPoint &pos : {QPoint(30, 30), QPoint(30, 70), QPoint(175, 140),
                                      QPoint(5, 5), QPoint(190, 80), QPoint(30, 152)})
                QCOMPARE(cached.pixelColor(pos), direct.pixelColor(pos));
            stage.tapButton();
            QCOMPARE(shownPicture(stage.view).pixelColor(30, 70), QColor(Qt::darkCyan));
        }
    }
};

KEL_TEST_MAIN(tst_KELComboBoxPaint)
#include "tst_kelcomboboxpaint.moc"
