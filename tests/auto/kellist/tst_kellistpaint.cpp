// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "liststage.h"

#include <kelrow.h>

#include <QtGui/QPainter>

namespace {

constexpr QSize pictureSize(200, 256);

// One colour a row.
class ColourDelegate : public KELListDelegate
{
public:
    static QColor colourOf(int row) { return QColor::fromHsv(row * 37 % 360, 200, 200); }

    void paint(QPainter *painter, const QRectF &rect, const QModelIndex &index,
               const KELPartStyle & /*style*/, States newStates) override
    {
        ++paints;
        states = newStates;
        painter->fillRect(rect, colourOf(index.row()));
    }

    int paints = 0;
    States states;
};

} // namespace

class tst_KELListPaint : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void rowsLookLikeRows_data()
    {
        addRows({{"direction", {{"left to right", 0}, {"right to left", 1}}},
                 {"scale", {{"1", 1}, {"2", 2}}}});
    }

    // At rest, without a mark: as a row beside the list.
    void rowsLookLikeRows()
    {
        const ListStage stage(4);
        const auto direction = Qt::LayoutDirection(fetch<int>("direction"));
        stage.list->setLayoutDirection(direction);
        stage.model->item(1)->setData(u"Detail"_s, KELList::DetailRole);
        stage.model->item(2)->setData(u"21 %"_s, KELList::ValueRole);
        stage.model->item(3)->setCheckable(true);
        stage.model->item(3)->setCheckState(Qt::Checked);
        KELRow rows[4];
        for (int i = 0; i < 4; ++i) {
            rows[i].setLayoutDirection(direction);
            rows[i].setCaption(u"Row %1"_s.arg(i));
            rows[i].setGeometry(0, i * rowPx, 200, rowPx);
        }
        rows[1].setDetail(u"Detail"_s);
        rows[2].setValue(u"21 %"_s);
        rows[3].setEnd(KELRow::Switch);
        rows[3].setChecked(true);
        const auto draw = [&rows](QPainter *painter) {
            for (KELRow &row : rows) {
                painter->save();
                painter->translate(row.pos());
                row.paint(painter, nullptr);
                painter->restore();
            }
        };
        QCOMPARE(KelImage::differenceFrom(draw, stage.list, pictureSize, fetch<int>("scale")),
                 QString());
    }

    void rowsAreCutAtTheEdges()
    {
        ListStage stage;
        ColourDelegate delegate;
        stage.list->setDelegate(&delegate);
        stage.list->setPosition(3 * rowPx + 20);
        const auto draw = [&stage](QPainter *painter) {
            for (int row = 3; row < 8; ++row) {
                const QRect place(0, row * rowPx - stage.list->position(), 200, rowPx);
                painter->fillRect(place & QRect(QPoint(), pictureSize),
                                  ColourDelegate::colourOf(row));
            }
            // The mark of a list that has just been moved.
            const int length = 256 * 256 / (100 * rowPx);
            const int way = int((256.0 - 24) * stage.list->position() / (100 * rowPx - 256));
            painter->fillRect(196, way, 4, qMax(24, length), QColor(0x56616f));
        };
        QCOMPARE(KelImage::differenceFrom(draw, stage.list, pictureSize), QString());
        QCOMPARE(KelImage::pixelsOutside(stage.list), QString());
        stage.list->setDelegate(nullptr);
        QCOMPARE(KelImage::pixelsOutside(stage.list), QString());
    }

    void headingsAndWhatIsBelowTheRows()
    {
        ListStage stage(2);
        ColourDelegate delegate;
        stage.list->setDelegate(&delegate);
        stage.model->item(0)->setData(u"One"_s, KELList::SectionRole);
        stage.model->item(1)->setData(u"Two"_s, KELList::SectionRole);
        stage.list->setSectionsShown(true);
        const auto draw = [](QPainter *painter) {
            painter->fillRect(QRect(QPoint(), pictureSize), Qt::white);
            QFont font;
            font.setPixelSize(13);
            painter->setFont(font);
            painter->setPen(QColor(0x56616f));
            painter->drawText(QRect(16, 0, 168, 32), Qt::AlignLeft | Qt::AlignVCenter, u"One"_s);
            painter->fillRect(0, 32, 200, rowPx, ColourDelegate::colourOf(0));
            painter->drawText(QRect(16, 96, 168, 32), Qt::AlignLeft | Qt::AlignVCenter, u"Two"_s);
            painter->fillRect(0, 128, 200, rowPx, ColourDelegate::colourOf(1));
        };
        QCOMPARE(KelImage::differenceFrom(draw, stage.list, pictureSize), QString());
        stage.list->setDelegate(nullptr);
    }

    // On a list of its own colour, a ring at the edge of the row would not be seen.
    void theFocusRingOfASelectedRowIsWithinIt()
    {
        ListStage stage;
        stage.model->item(0)->setText(QString());
        stage.list->setSelectable(true);
        stage.list->setCurrentRow(0);
        QVERIFY(stage.view.showAndWait());
        stage.list->setFocus(Qt::TabFocusReason);
        const QImage painted = KelImage::paint(stage.list, pictureSize);
        QImage expected(200, rowPx, painted.format());
        expected.fill(QColor(0x0b62d6));
        QPainter painter(&expected);
        painter.setPen(QPen(Qt::white, 2, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
        painter.drawRect(QRect(3, 3, 194, rowPx - 6));
        painter.setPen(Qt::NoPen);
        painter.fillRect(0, rowPx - 1, 200, 1, QColor(0xd5dce5));
        painter.end();
        QCOMPARE(KelImage::difference(painted.copy(0, 0, 200, rowPx), expected), QString());
    }

    void anEmptyListSaysSo()
    {
        const ListStage stage(0);
        stage.list->setEmptyText(u"No sensors"_s);
        const auto draw = [](QPainter *painter) {
            painter->fillRect(QRect(QPoint(), pictureSize), Qt::white);
            QFont font;
            font.setPixelSize(16);
            painter->setFont(font);
            painter->setPen(QColor(0x56616f));
            painter->drawText(QRect(QPoint(), pictureSize), Qt::AlignCenter, u"No sensors"_s);
        };
        QCOMPARE(KelImage::differenceFrom(draw, stage.list, pictureSize), QString());
    }

    // While it moves, the rows of a delegate are copied; at rest they are painted.
    void aMovingListLooksTheSame()
    {
        ListStage stage;
        ColourDelegate delegate;
        stage.list->setDelegate(&delegate);
        stage.list->setPosition(3 * rowPx + 20);
        const QImage kept = KelImage::paint(stage.list, pictureSize);
        delegate.paints = 0;
        const QImage again = KelImage::paint(stage.list, pictureSize);
        QCOMPARE(delegate.paints, 0);
        QCOMPARE(KelImage::difference(again, kept), QString());
        KELList direct; // at a place where nothing can be copied
        direct.setDelegate(&delegate);
        direct.setModel(stage.model.get());
        direct.setGeometry(0, 0, 200, 256);
        direct.setPosition(stage.list->position());
        const QImage painted = KelImage::draw(pictureSize, 1, [&direct](QPainter *painter) {
            painter->rotate(360); // no longer a translation for certain
            direct.paint(painter, nullptr);
        });
        QVERIFY(delegate.paints > 0);
        QCOMPARE(KelImage::difference(kept, painted), QString());
        stage.list->setDelegate(nullptr);
    }

    void aFramePaintsNewRowsOnly()
    {
        ListStage stage(10000);
        ColourDelegate delegate;
        stage.list->setDelegate(&delegate);
        QVERIFY(stage.view.showAndWait());
        stage.view.grab();
        delegate.paints = 0;
        for (int position = 1; position <= 50 * rowPx; ++position) {
            stage.list->setPosition(position);
            if (position % 8 == 0)
                stage.view.grab();
        }
        QVERIFY2(delegate.paints <= 56, QByteArray::number(delegate.paints));
        stage.list->setDelegate(nullptr);
    }

    void aPressShows()
    {
        ListStage stage(4);
        ColourDelegate delegate;
        stage.list->setDelegate(&delegate);
        stage.list->setSelectable(true);
        stage.view.showOnce();
        stage.hand.press(stage.placeOf(3));
        stage.view.grab();
        QCOMPARE(delegate.states, KELListDelegate::Pressed);
        stage.hand.release();
        stage.view.grab();
        QCOMPARE(delegate.states, KELListDelegate::Selected);
        stage.list->setLayoutDirection(Qt::RightToLeft);
        stage.view.grab();
        QCOMPARE(delegate.states, KELListDelegate::Selected | KELListDelegate::Mirrored);
        stage.list->setDelegate(nullptr);
    }
};

KEL_TEST_MAIN(tst_KELListPaint)
#include "tst_kellistpaint.moc"
