// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "eventlog.h"
#include "iconset.h"
#include "keltest.h"
#include "navigation.h"
#include "pageregistry.h"
#include "window.h"

#include <KELCheckBox>
#include <KELComboBox>
#include <KELDialogBase>
#include <KELNavigationTable>
#include <KELNonModalDialog>
#include <KELProcessBar>
#include <KELPushButton>
#include <KELRadioBox>
#include <KELSideMenu>
#include <KELSlideControl>
#include <QtCore/QBuffer>

namespace {

QTouchDevice *touchScreen()
{
    static QTouchDevice *const device = QTest::createTouchDevice();
    return device;
}

// Taps the middle of a control with one finger.
void tap(Window *window, const QString &name)
{
    const QPoint pos = window->geometryOf(name).center();
    QTest::touchEvent(window->viewport(), touchScreen()).press(0, pos, window->viewport());
    QTest::touchEvent(window->viewport(), touchScreen()).release(0, pos, window->viewport());
}

// The lines without their time. A finger may count as hovering, too.
QStringList gestures(const QByteArray &log)
{
    QStringList found;
    const QStringList logged = QString::fromUtf8(log).split('\n', Qt::SkipEmptyParts);
    for (const QString &line : logged) {
        if (!line.endsWith("mouseEnter") && !line.endsWith("mouseLeave"))
            found.append(line.section(' ', 1));
    }
    return found;
}

// Where a widget has been.
class PlaceRecorder : public QObject
{
public:
    explicit PlaceRecorder(QWidget *widget) : leftmost(widget->x()), rightmost(widget->x())
    {
        widget->installEventFilter(this);
    }
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Move) {
            const int x = static_cast<QMoveEvent *>(event)->pos().x();
            leftmost = qMin(leftmost, x);
            rightmost = qMax(rightmost, x);
        }
        return QObject::eventFilter(watched, event);
    }

    int leftmost;
    int rightmost;
};

// The items of the view and of the views inside it.
QList<QGraphicsItem *> itemsOf(const QGraphicsView &view)
{
    QList<QGraphicsItem *> items = view.scene()->items();
    const auto inner = view.findChildren<QGraphicsView *>();
    for (const QGraphicsView *child : inner)
        items += child->scene()->items();
    return items;
}

template <typename Type>
Type *find(const KELContentView &view, const QString &name)
{
    const QList<QGraphicsItem *> items = itemsOf(view);
    for (QGraphicsItem *item : items) {
        auto *found = dynamic_cast<Type *>(item);
        if (found && found->objectName() == name)
            return found;
    }
    return nullptr;
}

} // namespace

class tst_GalleryWindow : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { m_icons.install(IconSet::defaultPath()); }

    void fingerTapIsLogged()
    {
        QBuffer file;
        QVERIFY(file.open(QIODevice::WriteOnly));
        EventLog log(&file);
        Window window(QSize(800, 480), &log, &m_icons, galleryPageIndex("push-button"));
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        tap(&window, "press-me");
        const QPoint pos = window.geometryOf("press-me").center();
        const QString at = QString(" (%1, %2)").arg(pos.x()).arg(pos.y());
        QCOMPARE(gestures(file.data()),
                 QStringList({"Press me: mousePress" + at, "Press me: mouseRelease" + at,
                              "Press me: mouseClicked"}));
        QCOMPARE(log.tail(2).size(), 2);
        QVERIFY(log.tail(1).constFirst().endsWith("mouseClicked"));
    }

    void fingerTapInTheNavigationChangesThePage()
    {
        EventLog log(nullptr);
        Window window(QSize(800, 480), &log, &m_icons, 0);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QVERIFY(!find<KELPushButton>(window, "press-me"));
        tap(&window, "nav-push-button");
        QVERIFY(find<KELPushButton>(window, "press-me"));
        QVERIFY(find<KELPushButton>(window, "nav-push-button")->isCheck());
        QVERIFY(!find<KELPushButton>(window, "nav-round-rect")->isCheck());
    }

    void everyPageCanBeLeftAndEntered()
    {
        EventLog log(nullptr);
        Window window(QSize(800, 480), &log, &m_icons, 0);
        window.show();
        const int pages = int(galleryPages().size());
        for (int from = 0; from < pages; ++from) {
            for (int to = 0; to < pages; ++to) {
                window.showPage(from);
                window.showPage(to);
                QCoreApplication::processEvents();
            }
        }
    }

    void resizingLaysOutAgain()
    {
        EventLog log(nullptr);
        Window window(QSize(800, 480), &log, &m_icons, galleryPageIndex("push-button"));
        window.show();
        for (const QSize &size :
             {QSize(1024, 600), QSize(480, 800), QSize(200, 150), QSize(800, 480)}) {
            window.resize(size);
            QCoreApplication::processEvents();
            QCOMPARE(window.content()->rect().size(), QSizeF(size));
            QCOMPARE(window.transform(), QTransform());
            Window fresh(size, &log, &m_icons, galleryPageIndex("push-button"));
            QCOMPARE(window.geometryOf("press-me"), fresh.geometryOf("press-me"));
            QVERIFY(QRect(QPoint(), size).contains(window.geometryOf("press-me")));
        }
    }

    void resizingKeepsWhatAPageRemembers()
    {
        EventLog log(nullptr);
        Window window(QSize(800, 480), &log, &m_icons, galleryPageIndex("push-button"));
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        tap(&window, "check-me");
        QVERIFY(find<KELPushButton>(window, "check-me")->isCheck());
        window.resize(480, 800);
        QCoreApplication::processEvents();
        QVERIFY(find<KELPushButton>(window, "check-me")->isCheck());
    }

    void buildingAPageLogsNothing()
    {
        QBuffer file;
        QVERIFY(file.open(QIODevice::WriteOnly));
        EventLog log(&file);
        Window window(QSize(800, 480), &log, &m_icons, galleryPageIndex("radio-box"));
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QCOMPARE(file.data(), QByteArray());
        tap(&window, "radio-2");
        window.showPage(galleryPageIndex("slide-control"));
        tap(&window, "set-50");
        const QStringList before = gestures(file.data());
        QVERIFY(before.contains("Group: idChanged 2") && before.contains("Bar: valueChanged 50"));
        for (int page = 0; page < int(galleryPages().size()); ++page)
            window.showPage(page);
        window.resize(480, 800);
        QCoreApplication::processEvents();
        QCOMPARE(gestures(file.data()), before);
    }

    void switchesKeepTheirState()
    {
        EventLog log(nullptr);
        Window window(QSize(800, 480), &log, &m_icons, galleryPageIndex("check-box"));
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QVERIFY(!find<KELCheckBox>(window, "switch-48")->isCheck());
        QVERIFY(find<KELCheckBox>(window, "switch-64")->isCheck());
        tap(&window, "switch-48");
        tap(&window, "switch-64");
        window.resize(480, 800);
        QCoreApplication::processEvents();
        QVERIFY(find<KELCheckBox>(window, "switch-48")->isCheck());
        QVERIFY(!find<KELCheckBox>(window, "switch-64")->isCheck());
    }

    void radioBoxesKeepTheirState()
    {
        EventLog log(nullptr);
        Window window(QSize(800, 480), &log, &m_icons, galleryPageIndex("radio-box"));
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QVERIFY(find<KELRadioBox>(window, "radio-0")->isCheck());
        QVERIFY(find<KELRadioBox>(window, "radio-alone")->isCheck());
        tap(&window, "radio-3");
        tap(&window, "radio-alone");
        QCOMPARE(find<KELRoundRectControl>(window, "current-id")->text(), "Current id: 3");
        window.resize(480, 800);
        QCoreApplication::processEvents();
        QVERIFY(find<KELRadioBox>(window, "radio-3")->isCheck());
        QVERIFY(!find<KELRadioBox>(window, "radio-0")->isCheck());
        QVERIFY(!find<KELRadioBox>(window, "radio-alone")->isCheck());
        QCOMPARE(find<KELRoundRectControl>(window, "current-id")->text(), "Current id: 3");
    }

    void slidersKeepTheirValue()
    {
        EventLog log(nullptr);
        Window window(QSize(800, 480), &log, &m_icons, galleryPageIndex("slide-control"));
        window.show();
        find<KELSlideControl>(window, "offset-slider")->setValue(120);
        find<KELSlideControl>(window, "step-slider")->setValue(23);
        window.resize(480, 800);
        QCoreApplication::processEvents();
        QCOMPARE(find<KELSlideControl>(window, "offset-slider")->value(), 120.0F);
        QCOMPARE(find<KELSlideControl>(window, "step-slider")->value(), 20.0F);
    }

    void sliderAndBarKeepTheirValueAcrossPages()
    {
        EventLog log(nullptr);
        Window window(QSize(800, 480), &log, &m_icons, galleryPageIndex("slide-control"));
        find<KELProcessBar>(window, "bar")->setValue(72);
        window.showPage(galleryPageIndex("progress-bar"));
        QCOMPARE(find<KELProcessBar>(window, "bar")->value(), 72);
        QCOMPARE(find<KELSlideControl>(window, "slider")->value(), 72.0F);
    }

    void buttonsDriveBarAndSlider_data()
    {
        QTest::addColumn<QString>("page");
        QTest::newRow("on the progress bar's page") << "progress-bar";
        QTest::newRow("on the slider's page") << "slide-control";
    }

    void buttonsDriveBarAndSlider()
    {
        QFETCH(QString, page);
        EventLog log(nullptr);
        Window window(QSize(800, 480), &log, &m_icons, galleryPageIndex(page));
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        for (const int value : {100, 50, 0}) {
            tap(&window, QString("set-%1").arg(value));
            QCOMPARE(find<KELProcessBar>(window, "bar")->value(), value);
            QCOMPARE(find<KELSlideControl>(window, "slider")->value(), float(value));
        }
    }

    void barFollowsEveryValueOfTheSlider()
    {
        EventLog log(nullptr);
        Window window(QSize(800, 480), &log, &m_icons, galleryPageIndex("slide-control"));
        auto *slider = find<KELSlideControl>(window, "slider");
        auto *bar = find<KELProcessBar>(window, "bar");
        QSignalSpy moves(slider, &KELSlideControl::valueChanged);
        for (int i = 0; i <= 400; ++i) {
            slider->setValue(float(i) / 4);
            QCOMPARE(slider->value(), float(i) / 4);
            QCOMPARE(bar->value(), qRound(slider->value()));
        }
        QCOMPARE(moves.size(), 401);
    }

    void sliderFollowsEveryValueOfTheBar()
    {
        EventLog log(nullptr);
        Window window(QSize(800, 480), &log, &m_icons, galleryPageIndex("progress-bar"));
        auto *slider = find<KELSlideControl>(window, "slider");
        auto *bar = find<KELProcessBar>(window, "bar");
        bar->setValue(0);
        QSignalSpy moves(slider, &KELSlideControl::valueChanged);
        QSignalSpy changes(bar, &KELProcessBar::valueChanged);
        for (int value = 1; value <= 100; ++value) {
            bar->setValue(value);
            QCOMPARE(slider->value(), float(value));
        }
        QCOMPARE(moves.size(), 100);
        QCOMPARE(changes.size(), 100);
    }

    void bindingStateTellsModeAndValues()
    {
        EventLog log(nullptr);
        Window window(QSize(800, 480), &log, &m_icons, galleryPageIndex("data-bind"));
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        const auto *label = find<KELRoundRectControl>(window, "binding-state");
        auto *slider = find<KELSlideControl>(window, "source-slider");
        const auto state = [&] { return label->text().split('\n'); };
        QCOMPARE(state(), QStringList({"Effective mode: TwoWay", "Slider 40, model 40", ""}));
        slider->setValue(70);
        QCOMPARE(state().at(1), "Slider 70, model 70");
        QCOMPARE(find<KELProcessBar>(window, "model-bar")->value(), 70);
        tap(&window, "mode-1");
        QCOMPARE(state(),
                 QStringList({"Effective mode: Manual", "Slider 70, model 70", "setBind(Manual)"}));
        tap(&window, "model-more");
        QCOMPARE(state().at(1), "Slider 70, model 80");
        tap(&window, "bind");
        QCOMPARE(state().at(2), "error : bind is not setted");
        tap(&window, "update");
        QCOMPARE(state().mid(1), QStringList({"Slider 80, model 80", "update()"}));
        tap(&window, "mode-0");
        tap(&window, "unbind");
        slider->setValue(20);
        QCOMPARE(state(),
                 QStringList({"Effective mode: TwoWay", "Slider 20, model 80", "unbind()"}));
        tap(&window, "bind");
        QCOMPARE(state().mid(1), QStringList({"Slider 20, model 20", "bind()"}));
        tap(&window, "delete-model");
        slider->setValue(30);
        QCOMPARE(state(),
                 QStringList({"Effective mode: TwoWay", "Slider 30, model deleted",
                              "Nothing is carried any more."}));
        QCOMPARE(find<KELPushButton>(window, "delete-model")->text(), "New model");
    }

    void bindingKeepsModeAndLevel()
    {
        EventLog log(nullptr);
        Window window(QSize(800, 480), &log, &m_icons, galleryPageIndex("data-bind"));
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        tap(&window, "mode-4");
        tap(&window, "model-less");
        window.resize(480, 800);
        QCoreApplication::processEvents();
        QVERIFY(find<KELRadioBox>(window, "mode-4")->isCheck());
        QCOMPARE(find<KELSlideControl>(window, "source-slider")->value(), 30.0F);
        QCOMPARE(find<KELRoundRectControl>(window, "binding-state")->text(),
                 "Effective mode: OneWayToSource\nSlider 30, model 30\n");
    }

    void embeddedViewFollowsTheWindow()
    {
        EventLog log(nullptr);
        Window window(QSize(800, 480), &log, &m_icons, galleryPageIndex("content-view"));
        window.show();
        for (const QSize &size : {QSize(800, 480), QSize(1024, 600), QSize(480, 800)}) {
            window.resize(size);
            QCoreApplication::processEvents();
            const auto views = window.findChildren<KELContentView *>("embedded-view");
            QCOMPARE(views.size(), 1);
            QVERIFY(views.first()->isVisible());
            const QRect frame = window.geometryOf("embedded-frame");
            QVERIFY(frame.contains(views.first()->geometry()));
            QVERIFY(views.first()->width() > frame.width() * 0.9);
        }
    }

    void pressInsideThePanelFillsItsCountdown()
    {
        EventLog log(nullptr);
        Window window(QSize(800, 480), &log, &m_icons, galleryPageIndex("non-modal-dialog"));
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        tap(&window, "open-settings");
        auto *panel = window.findChild<KELNonModalDialog *>("Settings panel");
        QVERIFY(panel && panel->isVisible());
        auto *bar = find<KELProcessBar>(*panel, "panel-countdown");
        QVERIFY(bar && bar->value() > 85);
        QTRY_VERIFY_WITH_TIMEOUT(bar->value() < 60, 5000);
        QVERIFY(panel->isVisible());
        const auto *slider = find<KELSlideControl>(*panel, "panel-slider");
        QTest::mouseClick(panel->viewport(), Qt::LeftButton, Qt::NoModifier,
                          slider->sceneBoundingRect().center().toPoint());
        QVERIFY(bar->value() > 85);
        QVERIFY(panel->isVisible());
        panel->hide();
    }

    void dialogAndPanelsGoWithTheirPage()
    {
        EventLog log(nullptr);
        Window window(QSize(800, 480), &log, &m_icons, galleryPageIndex("dialog-base"));
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        tap(&window, "enter-pin");
        QPointer<KELDialogBase> dialog = window.findChild<KELDialogBase *>();
        QVERIFY(dialog && dialog->isVisible() && dialog->isModal());
        window.showPage(galleryPageIndex("non-modal-dialog"));
        QVERIFY(!dialog);
        tap(&window, "open-steps");
        QPointer<KELNonModalDialog> panel = KELNonModalDialog::activeDialog();
        QVERIFY(panel);
        window.resize(480, 800);
        QCoreApplication::processEvents();
        QVERIFY(!panel);
        QVERIFY(!KELNonModalDialog::activeDialog());
        window.showPage(galleryPageIndex("non-modal-helper"));
        QCOMPARE(window.findChildren<KELNonModalDialog *>().size(), 0);
        tap(&window, "open-popup");
        QPointer<KELContentView> popup = window.viewport()->findChild<KELContentView *>();
        QVERIFY(popup && popup->isVisible());
        window.showPage(0);
        QVERIFY(!popup);
    }

    void dialogAndPanelsFitIntoTheWindow_data() { liveButtonsAreLargeEnough_data(); }

    void dialogAndPanelsFitIntoTheWindow()
    {
        QFETCH(QSize, size);
        EventLog log(nullptr);
        for (const char *page : {"dialog-base", "non-modal-dialog", "non-modal-helper"}) {
            Window window(size, &log, &m_icons, galleryPageIndex(page));
            window.move(10, 20);
            window.show();
            QVERIFY(QTest::qWaitForWindowExposed(&window));
            for (const char *opener : {"enter-pin", "open-settings", "open-steps", "open-popup"}) {
                if (!window.geometryOf(opener).isNull())
                    tap(&window, opener);
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
        EventLog log(nullptr);
        Window window(QSize(800, 480), &log, &m_icons, galleryPageIndex("dialog-base"));
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        const QImage picture(":res/ico/dialog.png");
        QCOMPARE(picture.size(), QSize(400, 250));
        tap(&window, "enter-pin");
        auto *dialog = window.findChild<KELDialogBase *>();
        QVERIFY(dialog && dialog->isVisible());
        // To the very corners.
        const QImage shown = dialog->grab().toImage();
        QCOMPARE(shown.size(), picture.size());
        for (const QPoint &pos : {QPoint(0, 0), QPoint(399, 0), QPoint(0, 249), QPoint(399, 249),
                                  QPoint(200, 57), QPoint(200, 246)})
            QCOMPARE(shown.pixelColor(pos), picture.pixelColor(pos));
    }

    void wrongPinMovesTheDialogForAMoment()
    {
        EventLog log(nullptr);
        Window window(QSize(800, 480), &log, &m_icons, galleryPageIndex("dialog-base"));
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        tap(&window, "enter-pin");
        auto *dialog = window.findChild<KELDialogBase *>();
        QVERIFY(dialog && dialog->isVisible());
        const QPoint middle = dialog->pos();
        PlaceRecorder places(dialog);
        auto *key = find<KELPushButton>(*dialog->view(), "key-1");
        for (int i = 0; i < 4; ++i)
            Q_EMIT key->mouseClicked();
        // A busy machine may skip one side.
        QTRY_VERIFY(places.leftmost < middle.x() || places.rightmost > middle.x());
        QTRY_COMPARE(dialog->pos(), middle);
        QVERIFY(dialog->isVisible());
        dialog->reject();
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
        QFETCH(QSize, size);
        EventLog log(nullptr);
        Window window(size, &log, &m_icons, galleryPageIndex("combo-box"));
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        const auto *box = find<KELComboBox>(window, "combo-programme");
        const KELComboBoxItem *entry = box->items().at(2);
        const QPoint place = window.mapFromScene(entry->sceneBoundingRect().center());
        // Not with a finger: that cannot leave the screen, which the largest window does.
        const auto clickAt = [&](const QPoint &pos) {
            QTest::mouseClick(window.viewport(), Qt::LeftButton, Qt::NoModifier, pos);
        };
        const auto click = [&](const char *name) { clickAt(window.geometryOf(name).center()); };
        click("combo-programme");
        QVERIFY(entry->isVisible());
        clickAt(place);
        QCOMPARE(box->selectIndex(), 2);
        QVERIFY(!entry->isVisible());
        click("combo-programme");
        QVERIFY(entry->isVisible());
        click("combo-programme");
        QVERIFY(!entry->isVisible());
        click("combo-programme");
        click("toggle-enabled");
        QVERIFY(find<KELComboBox>(window, "combo-disabled")->isEnabled());
        QVERIFY(!entry->isVisible());
        click("combo-programme");
        click("nav-back");
        QVERIFY(!entry->isVisible());
    }

    void compositesKeepTheirSelection()
    {
        EventLog log(nullptr);
        Window window(QSize(800, 480), &log, &m_icons, galleryPageIndex("combo-box"));
        window.show();
        find<KELComboBox>(window, "combo-programme")->setSelectIndex(3);
        find<KELComboBox>(window, "combo-many")->setSelectIndex(999);
        window.showPage(galleryPageIndex("navigation-table"));
        QVERIFY(!find<KELComboBox>(window, "combo-many"));
        find<KELNavigationTable>(window, "table-plain")->setSelectIndex(2);
        window.resize(480, 800);
        QCoreApplication::processEvents();
        QCOMPARE(find<KELNavigationTable>(window, "table-titled")->selectIndex(), 0);
        QCOMPARE(find<KELNavigationTable>(window, "table-plain")->selectIndex(), 2);
        window.showPage(galleryPageIndex("combo-box"));
        QCOMPARE(find<KELComboBox>(window, "combo-programme")->selectedItem()->display(), "Boost");
        QCOMPARE(find<KELComboBox>(window, "combo-many")->selectedItem()->display(), "Entry 1000");
        QCOMPARE(find<KELComboBox>(window, "combo-many")->items().size(), 1000);
    }

    void menusGoWithTheirPage()
    {
        EventLog log(nullptr);
        Window window(QSize(800, 480), &log, &m_icons, galleryPageIndex("side-menu"));
        window.show();
        const auto menus = [&] {
            return window.findChildren<KELSideMenu *>(QRegularExpression("\\A(Column|Row)\\z"));
        };
        QCOMPARE(menus().size(), 2);
        window.resize(480, 800);
        QCoreApplication::processEvents();
        QCOMPARE(menus().size(), 2);
        window.showPage(0);
        QCOMPARE(menus().size(), 0);
    }

    void menusFitTheirFrames_data()
    {
        liveButtonsAreLargeEnough_data();
        QTest::newRow("1920x1080") << QSize(1920, 1080);
    }

    void menusFitTheirFrames()
    {
        QFETCH(QSize, size);
        EventLog log(nullptr);
        Window window(size, &log, &m_icons, galleryPageIndex("side-menu"));
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
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

    void liveButtonsAreLargeEnough_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::newRow("800x480") << QSize(800, 480);
        QTest::newRow("1024x600") << QSize(1024, 600);
        QTest::newRow("480x800") << QSize(480, 800);
        QTest::newRow("640x480") << QSize(640, 480);
    }

    void liveButtonsAreLargeEnough()
    {
        QFETCH(QSize, size);
        EventLog log(nullptr);
        for (int page = 0; page < int(galleryPages().size()); ++page) {
            Window window(size, &log, &m_icons, page);
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
        QFETCH(QSize, size);
        QFETCH(QRectF, place);
        EventLog log(nullptr);
        Window window(size, &log, &m_icons, 0);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QCOMPARE(window.geometryOf("nav-push-button"), place.toRect());
        auto *menu = window.findChild<KELSideMenu *>();
        const KELPushButton *button = find<KELPushButton>(window, "nav-push-button");
        const QPoint centre = menu->mapFromScene(button->sceneBoundingRect().center());
        QVERIFY((centre + menu->pos() - place.center().toPoint()).manhattanLength() <= 2);
        QTest::mouseClick(menu->viewport(), Qt::LeftButton, Qt::NoModifier, centre);
        QVERIFY(find<KELPushButton>(window, "press-me"));
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

KEL_TEST_MAIN(tst_GalleryWindow)
#include "tst_gallerywindow.moc"
