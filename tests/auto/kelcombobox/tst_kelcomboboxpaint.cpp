// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "combostage.h"

#include <QtGui/QFontMetrics>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>

#include <memory>

namespace {

const QSize canvas(330, 260);

const QRectF boxRects[] = {QRectF(20, 20, 160, 40), QRectF(10, 8, 300, 60), QRectF(30, 30, 64, 24),
                           QRectF(15, 25, 90, 31)};
constexpr qreal scales[] = {0.5, 1, 1.5, 2};

enum State { Closed, ClosedPressed, Open, OpenEntryPressed, Disabled, OpenDisabled, Enabled };

const Named states[] = {{"closed", Closed},
                        {"closed, button pressed", ClosedPressed},
                        {"open", Open},
                        {"open, entry pressed", OpenEntryPressed},
                        {"disabled", Disabled},
                        {"open and disabled", OpenDisabled},
                        {"enabled again", Enabled}};

bool isOpen(int state)
{
    return state == Open || state == OpenEntryPressed || state == OpenDisabled;
}

bool isDisabled(int state)
{
    return state == Disabled || state == OpenDisabled;
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
    explicit Picture(const QRectF &rect) : box(new KELComboBox)
    {
        box->setboundRect(rect.x(), rect.y(), rect.width(), rect.height());
        scene.addItem(box);
    }

    void fill(int state)
    {
        addEntries(box, threeTexts);
        box->setSelectIndex(1);
        if (isOpen(state))
            clickButton(*box);
        if (state == ClosedPressed)
            ComboParts(*box).button->style()->isMouseDown = true;
        if (state == OpenEntryPressed)
            box->items().at(2)->style()->isMouseDown = true;
        box->setEnabled(!isDisabled(state));
        if (state == Enabled) {
            box->setEnabled(false);
            box->setEnabled(true);
        }
    }

    QImage render(qreal scale)
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
    Drawing(const QRectF &rect, int state) : m_rect(rect), m_state(state) { }

    QString text = threeTexts.at(1);
    QStringList entries = threeTexts;

    QImage render(qreal scale) const
    {
        return KelImage::draw(canvas, scale, [this](QPainter *painter) {
            drawButton(painter);
            drawLabel(painter, QRectF(m_rect.x(), m_rect.y(), m_rect.width() - 30, m_rect.height()),
                      text, labelColour());
            drawLabel(painter, QRectF(m_rect.right() - 25, m_rect.y(), 25, m_rect.height()),
                      isOpen(m_state) ? u"▲"_s : u"▼"_s, labelColour());
            if (isOpen(m_state))
                drawList(painter);
        });
    }

private:
    QColor labelColour() const
    {
        return isDisabled(m_state) ? QColor(170, 170, 180, 200) : QColor(Qt::white);
    }

    static QPen outline(const QColor &colour, double width)
    {
        QPen pen(colour);
        pen.setWidthF(width);
        pen.setCapStyle(Qt::SquareCap);
        pen.setJoinStyle(Qt::BevelJoin);
        return pen;
    }

    static void clipTo(QPainter *painter, const QRectF &rect)
    {
        QPainterPath path;
        path.addRect(rect);
        painter->setClipPath(path, Qt::IntersectClip);
    }

    void drawButton(QPainter *painter) const
    {
        painter->save();
        clipTo(painter, m_rect);
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(outline(isDisabled(m_state) ? QColor(150, 150, 150, 100) : Qt::white, 1.5));
        if (m_state == ClosedPressed)
            painter->setBrush(QColor(50, 70, 100, 200));
        painter->drawRoundedRect(m_rect.adjusted(0.75, 0.75, -0.75, -0.75), 0, 0);
        painter->restore();
    }

    static void drawLabel(QPainter *painter, const QRectF &rect, const QString &caption,
                          const QColor &colour)
    {
        painter->save();
        painter->setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing
                                | QPainter::SmoothPixmapTransform);
        const QFont font;
        painter->setFont(font);
        painter->setPen(colour);
        painter->drawText(rect, Qt::AlignCenter | Qt::TextWordWrap,
                          QFontMetrics(font).elidedText(caption, Qt::ElideRight, int(rect.width()),
                                                        Qt::TextShowMnemonic));
        painter->restore();
    }

    void drawList(QPainter *painter) const
    {
        const double height = entries.isEmpty() ? 5 : 30.0 * entries.size();
        const QRectF list(m_rect.x(), m_rect.bottom() - 1, m_rect.width(), height);
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setBrush(QColor(4, 4, 18, 240));
        painter->setPen(outline(Qt::white, 1));
        painter->drawRoundedRect(list.adjusted(0.5, 0.5, -0.5, -0.5), 0, 0);
        painter->restore();
        for (int n = 0; n < entries.size(); ++n)
            drawEntry(painter, QRectF(list.x() + 0.5, list.y() + 30 * n, list.width() - 1, 30), n);
    }

    void drawEntry(QPainter *painter, const QRectF &rect, int n) const
    {
        if (m_state == OpenEntryPressed && n == 2) {
            painter->save();
            clipTo(painter, rect);
            painter->setRenderHint(QPainter::Antialiasing);
            painter->setPen(Qt::NoPen);
            painter->setBrush(QColor(50, 70, 100, 200));
            painter->drawRoundedRect(rect, 0, 0);
            painter->restore();
        }
        drawLabel(painter, rect, entries.at(n), Qt::white);
    }

    const QRectF m_rect;
    const int m_state;
};

void addStates()
{
    QTest::addColumn<QRectF>("rect");
    QTest::addColumn<int>("state");
    for (const QRectF &rect : boxRects) {
        for (const Named &state : states)
            QTest::addRow("%s, %g x %g", state.name, rect.width(), rect.height())
                << rect << state.value;
    }
}

} // namespace

class tst_KELComboBoxPaint : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void looksAsDrawnByHand_data() { addStates(); }

    void looksAsDrawnByHand()
    {
        QFETCH(QRectF, rect);
        QFETCH(int, state);
        Picture picture(rect);
        picture.fill(state);
        const Drawing drawing(rect, state);
        for (const qreal scale : scales)
            QCOMPARE(KelImage::difference(picture.render(scale), drawing.render(scale)), QString());
    }

    void emptyBox()
    {
        const QRectF rect(20, 20, 160, 40);
        Picture picture(rect);
        Drawing closed(rect, Closed);
        closed.text.clear();
        closed.entries.clear();
        QCOMPARE(KelImage::difference(picture.render(1), closed.render(1)), QString());
        clickButton(*picture.box);
        Drawing open(rect, Open);
        open.text.clear();
        open.entries.clear();
        for (const qreal scale : scales)
            QCOMPARE(KelImage::difference(picture.render(scale), open.render(scale)), QString());
    }

    void entryAddedToTheOpenList()
    {
        const QRectF rect(20, 20, 160, 40);
        Picture picture(rect);
        picture.fill(Open);
        picture.box->addItem(4, u"an entry whose text is much wider than the box"_s);
        Drawing drawing(rect, Open);
        drawing.entries.append(picture.box->items().last()->display());
        QCOMPARE(KelImage::difference(picture.render(1), drawing.render(1)), QString());
    }

    void removedEntryLeavesAGap()
    {
        const QRectF rect(20, 20, 160, 40);
        Picture picture(rect);
        picture.fill(Open);
        const QImage before = picture.render(1);
        delete picture.box->items().at(0);
        const QImage after = picture.render(1);
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
        const QRectF rect(20, 20, 160, 40);
        Picture picture(rect);
        auto *neighbour = new QGraphicsRectItem(20, 70, 160, 40);
        neighbour->setBrush(Qt::red);
        picture.scene.addItem(neighbour);
        picture.fill(Open);
        const QImage open = picture.render(1);
        // the list is not opaque: some red comes through
        QVERIFY(open.pixelColor(30, 75).red() < 50);
        clickButton(*picture.box);
        QCOMPARE(picture.render(1).pixelColor(30, 75), QColor(Qt::red));
    }

    void nothingOutsideBoxAndList_data() { addStates(); }

    void nothingOutsideBoxAndList()
    {
        QFETCH(QRectF, rect);
        QFETCH(int, state);
        Picture picture(rect);
        picture.fill(state);
        QRectF allowed = rect;
        if (isOpen(state))
            allowed.setBottom(rect.bottom() - 1 + 90);
        for (const qreal scale : scales) {
            // An outline thinner than a pixel is drawn as one pixel.
            const int slack = scale < 1 ? 1 : 0;
            const QRect kept = QRectF(allowed.topLeft() * scale, allowed.size() * scale)
                                   .toAlignedRect()
                                   .adjusted(-slack, -slack, slack, slack);
            QImage actual = picture.render(scale);
            QImage blank = KelImage::draw(canvas, scale, [](QPainter *) {});
            QVERIFY(actual != blank);
            QPainter(&actual).fillRect(kept, Qt::white);
            QPainter(&blank).fillRect(kept, Qt::white);
            QCOMPARE(KelImage::difference(actual, blank), QString());
        }
    }

    void closedListIsNotPainted()
    {
        const QRectF rect(20, 20, 160, 40);
        Picture picture(rect);
        picture.fill(Closed);
        const QImage closed = picture.render(1);
        clickButton(*picture.box);
        QVERIFY(picture.render(1) != closed);
        clickButton(*picture.box);
        QCOMPARE(KelImage::difference(picture.render(1), closed), QString());
    }

    void partsStayInside()
    {
        Picture picture(QRectF(20, 20, 160, 40));
        picture.fill(OpenEntryPressed);
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

    void cachedPictureInAView_data()
    {
        QTest::addColumn<int>("indexMethod");
        for (const Named &method : indexMethods)
            QTest::newRow(method.name) << method.value;
    }

    // What a window shows, with the caches of the items, is what is painted without them.
    void cachedPictureInAView()
    {
        QFETCH(int, indexMethod);
        ComboStage stage(indexMethod);
        stage.view.setBackgroundBrush(Qt::darkCyan);
        QVERIFY(stage.show());
        for (int round = 0; round < 2; ++round) {
            stage.open();
            const QImage cached = shownPicture(stage.view);
            setCacheModes(stage.box, QGraphicsItem::NoCache);
            stage.view.viewport()->update();
            const QImage direct = shownPicture(stage.view);
            setCacheModes(stage.box, QGraphicsItem::DeviceCoordinateCache); // as controls are made
            // inside the outlines and beside the texts, where nothing is smoothed
            for (const QPoint &pos : {QPoint(30, 30), QPoint(30, 70), QPoint(175, 140),
                                      QPoint(5, 5), QPoint(190, 80), QPoint(30, 152)})
                QCOMPARE(cached.pixelColor(pos), direct.pixelColor(pos));
            stage.open();
            QCOMPARE(shownPicture(stage.view).pixelColor(30, 70), QColor(Qt::darkCyan));
        }
    }
};

KEL_TEST_MAIN(tst_KELComboBoxPaint)
#include "tst_kelcomboboxpaint.moc"
