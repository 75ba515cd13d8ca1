// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "gallerywindow.h"
#include "navigation.h"

#include <KELComboBox>
#include <KELContentView>
#include <KELDialogBase>
#include <KELPushButton>
#include <KELSideMenu>

// Where the parts of the pages are, at every size.
class tst_GalleryLayout : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { m_icons.install(IconSet::defaultPath()); }

    void resizingLaysOutAgain()
    {
        GalleryWindow window(m_icons, "push-button");
        for (const QSize &size :
             {QSize(1024, 600), QSize(480, 800), QSize(200, 150), QSize(800, 480)}) {
            window.resizeTo(size);
            QCOMPARE(window.content()->rect().size(), QSizeF(size));
            QCOMPARE(window.transform(), QTransform());
            const GalleryWindow fresh(m_icons, "push-button", size);
            QCOMPARE(window.geometryOf("press-me"), fresh.geometryOf("press-me"));
            QVERIFY(QRect(QPoint(), size).contains(window.geometryOf("press-me")));
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

    void comboBoxWorksAtEveryScale_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::newRow("half") << QSize(400, 240);
        QTest::newRow("one") << QSize(800, 480);
        QTest::newRow("twice") << QSize(2560, 1600);
    }

    void comboBoxWorksAtEveryScale()
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
        window.click("nav-back");
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
            QCOMPARE(entries, 4);
        }
    }

    void liveButtonsAreLargeEnough_data() { addSizes(); }

    void liveButtonsAreLargeEnough()
    {
        const auto size = fetch<QSize>("size");
        for (const PageEntry &page : galleryPages()) {
            const GalleryWindow window(m_icons, page.name, size);
            const QList<QGraphicsItem *> items = window.scene()->items();
            for (const QGraphicsItem *item : items) {
                if (item->acceptedMouseButtons() == Qt::NoButton || !item->isVisible())
                    continue;
                // What lies on a button is pressed with it.
                if (item->parentItem() && item->parentItem()->handlesChildEvents())
                    continue;
                const QRectF rect = item->sceneBoundingRect();
                const QString name = item->toGraphicsObject()->objectName();
                QVERIFY2(rect.width() >= 44 && rect.height() >= 44, qPrintable(name));
                QVERIFY2(QRectF(QPointF(), size).contains(rect), qPrintable(name));
            }
        }
    }

    void sixteenPagesCanBeReached_data()
    {
        QTest::addColumn<QRectF>("area");
        QTest::addColumn<int>("turns");
        QTest::newRow("column of 480 px") << QRectF(0, 0, 152, 480) << 2;
        QTest::newRow("row of 480 px") << QRectF(0, 728, 480, 72) << 3;
        QTest::newRow("row of 800 px") << QRectF(0, 0, 800, 72) << 2;
    }

    void sixteenPagesCanBeReached()
    {
        QFETCH(QRectF, area);
        QFETCH(int, turns);
        const std::vector<PageEntry> pages(16, PageEntry{"page", "Page", 0, nullptr});
        KELRoundRectControl root;
        QWidget view;
        root.setboundRect(0, 0, 0, 0);
        Navigation bar(&m_icons, pages, area, &root, &view);

        KELPushButton *forth = nullptr;
        const QList<QGraphicsItem *> children = bar.childItems();
        for (QGraphicsItem *child : children) {
            auto *button = static_cast<KELPushButton *>(child);
            QVERIFY(area.contains(button->boundingRect()));
            QVERIFY(button->rect().width() >= 44 && button->rect().height() >= 44);
            if (button->objectName() == "nav-forth")
                forth = button;
        }
        QVector<KELPushButton *> buttons;
        const auto menus = view.findChildren<KELSideMenu *>();
        for (const KELSideMenu *menu : menus) {
            QVERIFY(area.contains(menu->geometry()));
            const QList<QGraphicsItem *> items = menu->scene()->items(Qt::AscendingOrder);
            for (QGraphicsItem *item : items) {
                auto *button = dynamic_cast<KELPushButton *>(item);
                if (!button)
                    continue;
                const QRectF rect = button->boundingRect().translated(menu->pos());
                QVERIFY(area.contains(rect));
                QVERIFY(rect.width() >= 44 && rect.height() >= 44);
                for (const QGraphicsItem *child : children)
                    QVERIFY(!child->boundingRect().intersects(rect));
                buttons.append(button);
            }
        }
        QCOMPARE(buttons.size(), 16);
        QVERIFY(forth);
        QSet<KELPushButton *> seen;
        int turned = 0;
        for (; turned < 16; ++turned) {
            for (KELPushButton *button : qAsConst(buttons)) {
                if (button->isVisible() && button->scene()->views().first()->isVisibleTo(&view))
                    seen.insert(button);
            }
            if (!forth->isEnabled())
                break;
            Q_EMIT forth->mouseClicked();
        }
        QCOMPARE(seen.size(), 16);
        QCOMPARE(turned, turns);
        bar.setCurrent(0);
        QVERIFY(buttons.first()->isVisible() && forth->isEnabled());
        bar.setCurrent(15);
        QVERIFY(buttons.last()->isVisible() && !forth->isEnabled());
    }

    void wholeNavigationNeedsNoTurning()
    {
        const std::vector<PageEntry> pages(8, PageEntry{"page", "Page", 0, nullptr});
        KELRoundRectControl root;
        QWidget view;
        root.setboundRect(0, 0, 0, 0);
        Navigation bar(&m_icons, pages, QRectF(0, 0, 152, 480), &root, &view);
        QCOMPARE(bar.childItems().size(), 0);
        QCOMPARE(view.findChildren<KELSideMenu *>().size(), 1);
    }

    void navigationWorksAtEveryScale_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<QRectF>("place"); // of the second button
        QTest::newRow("half") << QSize(400, 240) << QRectF(4, 32, 68, 24);
        QTest::newRow("one") << QSize(800, 480) << QRectF(8, 64, 136, 48);
        QTest::newRow("twice") << QSize(2560, 1600) << QRectF(16, 128, 272, 96);
        QTest::newRow("twice, upright") << QSize(1600, 2560) << QRectF(316, 2432, 186, 112);
    }

    void navigationWorksAtEveryScale()
    {
        const auto size = fetch<QSize>("size");
        QFETCH(QRectF, place);
        GalleryWindow window(m_icons, "round-rect", size);
        QCOMPARE(window.geometryOf("nav-push-button"), place.toRect());
        auto *menu = window.findChild<KELSideMenu *>();
        const KELPushButton *button = window.find<KELPushButton>("nav-push-button");
        const QPoint centre = menu->mapFromScene(button->sceneBoundingRect().center());
        QVERIFY((centre + menu->pos() - place.center().toPoint()).manhattanLength() <= 2);
        QTest::mouseClick(menu->viewport(), Qt::LeftButton, Qt::NoModifier, centre);
        QVERIFY(window.find<KELPushButton>("press-me"));
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
    IconSet m_icons;
};

KEL_TEST_MAIN(tst_GalleryLayout)
#include "tst_gallerylayout.moc"
