// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "gallerywindow.h"

#include <KELCheckBox>
#include <KELComboBox>
#include <KELContentView>
#include <KELDialogBase>
#include <KELList>
#include <KELPushButton>
#include <KELSideMenu>
#include <QtWidgets/QGraphicsLayout>

// Where the parts of the pages are, at every size.
class tst_GalleryLayout : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { m_icons.install(IconSet::defaultPath()); }

    void resizingLaysOutAgain()
    {
        GalleryWindow window(m_icons, "push-button", QSize(800, 480));
        for (const QSize &size :
             {QSize(1024, 600), QSize(480, 800), QSize(200, 150), QSize(800, 480)}) {
            window.resizeTo(size);
            QCOMPARE(window.currentPage()->size(), QSizeF(size));
            QCOMPARE(window.transform(), QTransform());
            const GalleryWindow fresh(m_icons, "push-button", size);
            QCOMPARE(window.geometryOf("press-me"), fresh.geometryOf("press-me"));
        }
    }

    void theListLeadsToEveryPage_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::newRow("480x272") << QSize(480, 272);
        QTest::newRow("480x600") << QSize(480, 600); // a finger cannot leave the screen
        QTest::newRow("800x480") << QSize(800, 480);
    }

    void theListLeadsToEveryPage()
    {
        GalleryWindow window(m_icons, QString(), fetch<QSize>("size"));
        const int pages = int(galleryPages().size());
        for (int page = 0; page < pages; ++page) {
            auto *list = window.find<KELList>("pages");
            const int row = page + HomePage::rowsAbovePages();
            list->scrollTo(row);
            const QPoint place = window.mapFromScene(list->mapToScene(list->rowRect(row).center()));
            QVERIFY(window.rect().contains(place));
            window.tapAt(place);
            QCOMPARE(window.pageCount(), 2);
            window.tap("back");
            QCOMPARE(window.pageCount(), 1);
            QCOMPARE(window.find<KELList>("pages"), list); // where it was
        }
    }

    void embeddedViewFollowsTheWindow()
    {
        GalleryWindow window(m_icons, "content-view");
        for (const QSize &size : {QSize(800, 480), QSize(1024, 600), QSize(480, 800)}) {
            window.resizeTo(size);
            const auto views = window.findChildren<KELContentView *>("embedded-view");
            QCOMPARE(views.size(), 1);
            QVERIFY(views.first()->isVisible());
            const QRect frame = window.geometryOf("embedded-frame");
            QVERIFY(frame.contains(views.first()->geometry()));
            QVERIFY(views.first()->width() > frame.width() * 0.9);
        }
    }

    void dialogAndPanelsFitIntoTheWindow_data() { addSizes(); }

    void dialogAndPanelsFitIntoTheWindow()
    {
        const auto size = fetch<QSize>("size");
        for (const char *page : {"dialog-base", "non-modal-dialog", "non-modal-helper"}) {
            GalleryWindow window(m_icons, page, size);
            window.move(10, 20);
            for (const char *opener : {"enter-pin", "open-settings", "open-steps", "open-popup"}) {
                if (!window.geometryOf(opener).isNull())
                    window.tap(opener);
            }
            int seen = 0;
            const auto views = window.findChildren<KELContentView *>();
            for (const KELContentView *view : views) {
                const QRect place(window.mapFromGlobal(view->mapToGlobal(QPoint())), view->size());
                QVERIFY2(window.rect().contains(place), page);
                if (view->isVisible()) {
                    QCOMPARE(view->viewport()->size(), view->size());
                    QCOMPARE(view->viewportTransform(), QTransform());
                }
                const QList<QGraphicsItem *> items = view->scene()->items();
                for (const QGraphicsItem *item : items) {
                    if (!dynamic_cast<const KELRoundRectControl *>(item)
                        || item->acceptedMouseButtons() == Qt::NoButton)
                        continue;
                    const QRectF rect = item->sceneBoundingRect();
                    QVERIFY(view->rect().contains(rect.toRect()));
                    QVERIFY(rect.width() >= 44 && rect.height() >= 44);
                    ++seen;
                }
            }
            QVERIFY(seen > 0);
        }
    }

    void dialogShowsItsPicture()
    {
        GalleryWindow window(m_icons, "dialog-base");
        const QImage picture(":res/ico/dialog.png");
        QCOMPARE(picture.size(), QSize(400, 250));
        window.tap("enter-pin");
        auto *dialog = window.findChild<KELDialogBase *>();
        QVERIFY(dialog && dialog->isVisible());
        // To the very corners.
        const QImage shown = dialog->grab().toImage();
        QCOMPARE(shown.size(), picture.size());
        for (const QPoint &pos : {QPoint(0, 0), QPoint(399, 0), QPoint(0, 249), QPoint(399, 249),
                                  QPoint(200, 57), QPoint(200, 246)})
            QCOMPARE(shown.pixelColor(pos), picture.pixelColor(pos));
    }

    void comboBoxWorksAtEverySize_data()
    {
        addSizes();
        QTest::newRow("2560x1600") << QSize(2560, 1600);
    }

    void comboBoxWorksAtEverySize()
    {
        const auto size = fetch<QSize>("size");
        GalleryWindow window(m_icons, "combo-box", size);
        const auto *box = window.find<KELComboBox>("combo-programme");
        const KELComboBoxItem *entry = box->items().at(2);
        const QPoint place = window.mapFromScene(entry->sceneBoundingRect().center());
        // Not with a finger: that cannot leave the screen, which the largest window does.
        window.click("combo-programme");
        QVERIFY(entry->isVisible());
        window.click(place);
        QCOMPARE(box->selectIndex(), 2);
        QVERIFY(!entry->isVisible());
        window.click("combo-programme");
        QVERIFY(entry->isVisible());
        window.click("combo-programme");
        QVERIFY(!entry->isVisible());
        window.click("combo-programme");
        window.click("toggle-enabled");
        QVERIFY(window.find<KELComboBox>("combo-disabled")->isEnabled());
        QVERIFY(!entry->isVisible());
        window.click("combo-programme");
        window.click("back");
        QVERIFY(!entry->isVisible());
    }

    void menusFitTheirFrames_data()
    {
        addSizes();
        QTest::newRow("1920x1080") << QSize(1920, 1080);
    }

    void menusFitTheirFrames()
    {
        const auto size = fetch<QSize>("size");
        GalleryWindow window(m_icons, "side-menu", size);
        for (const char *name : {"Column", "Row"}) {
            const auto *menu = window.findChild<KELSideMenu *>(name);
            const QString frame = QString("frame-") + name;
            QVERIFY(window.geometryOf(frame.toLower()).contains(menu->geometry()));
            int entries = 0;
            const QList<QGraphicsItem *> items = menu->scene()->items();
            for (QGraphicsItem *item : items) {
                if (!dynamic_cast<KELPushButton *>(item))
                    continue;
                const QRectF rect = item->sceneBoundingRect();
                QVERIFY(QRectF(menu->rect()).contains(rect));
                QVERIFY(rect.width() >= 44 && rect.height() >= 44);
                ++entries;
            }
            QCOMPARE(entries, size.height() < 300 && frame.endsWith("Column") ? 3 : 4);
        }
    }

    void pagesAreLaidOut_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<QString>("page");
        for (const QSize &size :
             {QSize(480, 272), QSize(480, 800), QSize(800, 480), QSize(1280, 800)}) {
            for (const PageEntry &entry : galleryPages())
                QTest::addRow("%dx%d, %s", size.width(), size.height(), entry.name)
                    << size << QString(entry.name);
        }
    }

    // One window a row: it takes most of the time.
    void pagesAreLaidOut()
    {
        const GalleryWindow window(m_icons, fetch<QString>("page"), fetch<QSize>("size"));
        compareWidths(window);
        compareCaptions(window);
        compareCards(window);
    }

    void glyphsShownExist()
    {
        QVERIFY2(m_icons.isInstalled(), "fonts-font-awesome is not installed");
        QVERIFY(m_icons.has(Icon::home));
        QVERIFY(!m_icons.has(0xe000));
        QVERIFY(m_icons.glyph(0xe000).isNull());
        const QVector<ushort> codes = m_icons.codePoints();
        QVERIFY(codes.size() > 600);
        QVERIFY(std::is_sorted(codes.cbegin(), codes.cend()));
        for (const ushort code : codes)
            QVERIFY(m_icons.has(code));
        for (const PageEntry &entry : galleryPages())
            QVERIFY2(m_icons.has(entry.icon), entry.name);
    }

private:
    static void compareWidths(const GalleryWindow &window)
    {
        const QSize size = window.size();
        const QList<QGraphicsItem *> items = window.scene()->items();
        for (QGraphicsItem *item : items) {
            auto *control = dynamic_cast<KELRoundRectControl *>(item);
            if (!control || !control->isVisible())
                continue;
            const QRectF rect = control->sceneBoundingRect();
            const QByteArray name = (control->objectName() + '/' + control->text()).toUtf8();
            QVERIFY2(rect.left() >= -1 && rect.right() <= size.width() + 1, name);
            const bool isPartOfAnother = item->parentItem()
                && item->parentItem()->handlesChildEvents();
            if (item->acceptedMouseButtons() != Qt::NoButton && !isPartOfAnother) {
                const qreal leastPx = qobject_cast<KELCheckBox *>(control) ? 38 : 44;
                QVERIFY2(rect.width() >= leastPx && rect.height() >= leastPx, name);
            }
        }
    }

    // They are whole, but for samples of captions that are cut.
    static void compareCaptions(const GalleryWindow &window)
    {
        const QList<QGraphicsItem *> items = window.scene()->items();
        for (QGraphicsItem *item : items) {
            const auto *control = dynamic_cast<KELRoundRectControl *>(item);
            if (!control || !control->isVisible() || !control->style()->trimText
                || control->text().contains("too long"))
                continue;
            const QFontMetricsF metrics(control->style()->font);
            const QRectF room = control->rect().marginsRemoved(control->style()->margins);
            const QStringList lines = control->text().split('\n');
            for (const QString &line : lines)
                QVERIFY2(metrics.horizontalAdvance(line) <= room.width(), qPrintable(line));
        }
    }

    // They do not overlap.
    static void compareCards(const GalleryWindow &window)
    {
        const QList<QGraphicsItem *> items = window.scene()->items();
        QVector<QRectF> cards;
        for (QGraphicsItem *item : items) {
            // A card has a layout, which is on a child item of its own.
            const QList<QGraphicsItem *> children = item->childItems();
            if (!dynamic_cast<KELRoundRectControl *>(item) || children.isEmpty())
                continue;
            const auto *widget = dynamic_cast<QGraphicsWidget *>(children.first());
            if (widget && widget->layout())
                cards.append(item->sceneBoundingRect().adjusted(1, 1, -1, -1));
        }
        for (int i = 1; i < cards.size(); ++i) {
            for (int j = 0; j < i; ++j)
                QVERIFY(!cards.at(i).intersects(cards.at(j)));
        }
    }

    IconSet m_icons;
};

KEL_TEST_MAIN(tst_GalleryLayout)
#include "tst_gallerylayout.moc"
