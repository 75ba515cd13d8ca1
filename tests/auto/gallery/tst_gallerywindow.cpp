// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "gallerywindow.h"

#include <KELCheckBox>
#include <KELComboBox>
#include <KELContentView>
#include <KELDialogBase>
#include <KELList>
#include <KELNavigationTable>
#include <KELNonModalDialog>
#include <KELPicker>
#include <KELProcessBar>
#include <KELPushButton>
#include <KELRadioBox>
#include <KELSideMenu>
#include <KELSlideControl>
#include <QtGui/QClipboard>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QScrollBar>

namespace {

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

} // namespace

// What the pages do and remember.
class tst_GalleryWindow : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { m_icons.install(IconSet::defaultPath()); }

    void fingerTapIsLogged()
    {
        GalleryWindow window(m_icons, "push-button");
        window.tap("press-me");
        const QPoint pos = QRect(QPoint(), window.geometryOf("press-me").size()).center();
        const QString at = QString(" (%1, %2)").arg(pos.x()).arg(pos.y());
        QCOMPARE(window.gestures(),
                 QStringList({"Press me: mousePress" + at, "Press me: mouseRelease" + at,
                              "Press me: mouseClicked"}));
        QCOMPARE(window.eventLog().tail(2).size(), 2);
        QVERIFY(window.eventLog().tail(1).constFirst().endsWith("mouseClicked"));
    }

    void aRowChangesTheLook()
    {
        GalleryWindow window(m_icons, QString());
        const QColor light = window.scene()->backgroundBrush().color();
        QStringList names;
        for (int i = 0; i < 3; ++i) {
            window.tapRow(0);
            names.append(window.lookName());
        }
        QCOMPARE(names, QStringList({"Dark", "High contrast", "Light"}));
        QCOMPARE(window.scene()->backgroundBrush().color(), light);
        window.tapRow(0);
        QVERIFY(window.scene()->backgroundBrush().color() != light);
    }

    void aRowChangesTheLanguage()
    {
        GalleryWindow window(m_icons, QString());
        const auto caption = [&window] {
            return window.find<KELList>("pages")->model()->index(0, 0).data().toString();
        };
        QCOMPARE(caption(), "Look");
        window.tapRow(1);
        QCOMPARE(window.languageName(), "Deutsch");
        QCOMPARE(window.layoutDirection(), Qt::LeftToRight);
        QCOMPARE(caption(), "Aussehen");
        window.tapRow(1);
        QCOMPARE(window.layoutDirection(), Qt::RightToLeft);
        QVERIFY(caption() != "Look");
        window.tapRow(1);
        QCOMPARE(window.languageName(), "English");
        QCOMPARE(caption(), "Look");
        QCOMPARE(window.layoutDirection(), Qt::LeftToRight);
    }

    void theCodeOfASampleIsShownAndCopied()
    {
        GalleryWindow window(m_icons, "push-button");
        window.tap("show-code");
        const auto texts = window.findChildren<QPlainTextEdit *>();
        const auto shown = std::find_if(texts.cbegin(), texts.cend(),
                                        [](const QWidget *text) { return text->isVisible(); });
        QVERIFY(shown != texts.cend());
        QVERIFY((*shown)->toPlainText().contains("new KELPushButton"));
        window.tap("copy-code");
        QCOMPARE(QGuiApplication::clipboard()->text(), (*shown)->toPlainText());
        window.tap("drawer-close");
        QVERIFY(!(*shown)->isVisible());
    }

    void aFingerScrollsTheCode()
    {
        GalleryWindow window(m_icons, "push-button", QSize(480, 272));
        window.tap("show-code");
        const auto texts = window.findChildren<QPlainTextEdit *>();
        const auto shown = std::find_if(texts.cbegin(), texts.cend(),
                                        [](const QWidget *text) { return text->isVisible(); });
        QVERIFY(shown != texts.cend());
        const QScrollBar *bar = (*shown)->verticalScrollBar();
        QVERIFY(bar->maximum() > 0);
        QWidget *viewport = (*shown)->viewport();
        QTest::mousePress(viewport, Qt::LeftButton, Qt::NoModifier, {50, 70});
        for (int y = 60; y >= 10; y -= 10) {
            QTest::qWait(20);
            QMouseEvent move(QEvent::MouseMove, QPointF(50, y), Qt::NoButton, Qt::LeftButton,
                             Qt::NoModifier);
            QApplication::sendEvent(viewport, &move);
        }
        QTest::mouseRelease(viewport, Qt::LeftButton, Qt::NoModifier, {50, 10});
        QTRY_VERIFY(bar->value() > 0);
    }

    void theSignalsComeIntoADrawer()
    {
        GalleryWindow window(m_icons, "push-button");
        window.tap("press-me");
        window.tap("show-log");
        const auto texts = window.findChildren<QPlainTextEdit *>();
        const auto shown = std::find_if(texts.cbegin(), texts.cend(),
                                        [](const QWidget *text) { return text->isVisible(); });
        QVERIFY(shown != texts.cend());
        QVERIFY((*shown)->toPlainText().contains("Press me: mouseClicked"));
        window.tap("show-log");
        QVERIFY(!(*shown)->isVisible());
    }

    void everyPageCanBeLeftAndEntered()
    {
        GalleryWindow window(m_icons, "round-rect");
        const int pages = int(galleryPages().size());
        for (int from = 0; from < pages; ++from) {
            for (const int distance : {1, 5}) {
                window.showPage(from);
                window.showPage((from + distance) % pages);
                QCoreApplication::processEvents();
            }
        }
    }

    void resizingKeepsWhatAPageRemembers()
    {
        GalleryWindow window(m_icons, "push-button");
        window.tap("check-me");
        QVERIFY(window.find<KELPushButton>("check-me")->isCheck());
        window.turnUpright();
        QVERIFY(window.find<KELPushButton>("check-me")->isCheck());
    }

    void buildingAPageLogsNothing()
    {
        GalleryWindow window(m_icons, "radio-box");
        QCOMPARE(window.gestures(), QStringList());
        window.tap("radio-2");
        window.go("slide-control");
        window.tap("set-50");
        const QStringList before = window.gestures();
        QVERIFY(before.contains("Group: idChanged 2") && before.contains("Bar: valueChanged 50"));
        for (int page = 0; page < int(galleryPages().size()); ++page)
            window.showPage(page);
        window.turnUpright();
        QCOMPARE(window.gestures(), before);
    }

    void switchesKeepTheirState()
    {
        GalleryWindow window(m_icons, "check-box");
        QVERIFY(!window.find<KELCheckBox>("switch-48")->isCheck());
        QVERIFY(window.find<KELCheckBox>("switch-64")->isCheck());
        window.tap("switch-48");
        window.tap("switch-64");
        window.turnUpright();
        QVERIFY(window.find<KELCheckBox>("switch-48")->isCheck());
        QVERIFY(!window.find<KELCheckBox>("switch-64")->isCheck());
    }

    void radioBoxesKeepTheirState()
    {
        GalleryWindow window(m_icons, "radio-box");
        QVERIFY(window.find<KELRadioBox>("radio-0")->isCheck());
        QVERIFY(window.find<KELRadioBox>("radio-alone")->isCheck());
        window.tap("radio-3");
        window.tap("radio-alone");
        QCOMPARE(window.find<KELRoundRectControl>("current-id")->text(), "Current id: 3");
        window.turnUpright();
        QVERIFY(window.find<KELRadioBox>("radio-3")->isCheck());
        QVERIFY(!window.find<KELRadioBox>("radio-0")->isCheck());
        QVERIFY(!window.find<KELRadioBox>("radio-alone")->isCheck());
        QCOMPARE(window.find<KELRoundRectControl>("current-id")->text(), "Current id: 3");
    }

    void slidersKeepTheirValue()
    {
        GalleryWindow window(m_icons, "slide-control");
        window.find<KELSlideControl>("offset-slider")->setValue(120);
        window.find<KELSlideControl>("step-slider")->setValue(23);
        window.turnUpright();
        QCOMPARE(window.find<KELSlideControl>("offset-slider")->value(), 120.0F);
        QCOMPARE(window.find<KELSlideControl>("step-slider")->value(), 20.0F);
    }

    void sliderAndBarKeepTheirValueAcrossPages()
    {
        GalleryWindow window(m_icons, "slide-control");
        window.find<KELProcessBar>("bar")->setValue(72);
        window.go("progress-bar");
        QCOMPARE(window.find<KELProcessBar>("bar")->value(), 72);
        QCOMPARE(window.find<KELSlideControl>("slider")->value(), 72.0F);
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
        GalleryWindow window(m_icons, page);
        for (const int value : {100, 50, 0}) {
            window.tap(QString("set-%1").arg(value));
            QCOMPARE(window.find<KELProcessBar>("bar")->value(), value);
            QCOMPARE(window.find<KELSlideControl>("slider")->value(), float(value));
        }
    }

    void barFollowsEveryValueOfTheSlider()
    {
        GalleryWindow window(m_icons, "slide-control");
        auto *slider = window.find<KELSlideControl>("slider");
        auto *bar = window.find<KELProcessBar>("bar");
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
        GalleryWindow window(m_icons, "progress-bar");
        auto *slider = window.find<KELSlideControl>("slider");
        auto *bar = window.find<KELProcessBar>("bar");
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
        GalleryWindow window(m_icons, "data-bind");
        const auto *label = window.find<KELRoundRectControl>("binding-state");
        auto *slider = window.find<KELSlideControl>("source-slider");
        const auto state = [&] { return label->text().split('\n'); };
        QCOMPARE(state(), QStringList({"Effective mode: TwoWay", "Slider 40, model 40", ""}));
        slider->setValue(70);
        QCOMPARE(state().at(1), "Slider 70, model 70");
        QCOMPARE(window.find<KELProcessBar>("model-bar")->value(), 70);
        window.tap("mode-1");
        QCOMPARE(state(),
                 QStringList({"Effective mode: Manual", "Slider 70, model 70", "setBind(Manual)"}));
        window.tap("model-more");
        QCOMPARE(state().at(1), "Slider 70, model 80");
        window.tap("bind");
        QCOMPARE(state().at(2), "error : bind is not setted");
        window.tap("update");
        QCOMPARE(state().mid(1), QStringList({"Slider 80, model 80", "update()"}));
        window.tap("mode-0");
        window.tap("unbind");
        slider->setValue(20);
        QCOMPARE(state(),
                 QStringList({"Effective mode: TwoWay", "Slider 20, model 80", "unbind()"}));
        window.tap("bind");
        QCOMPARE(state().mid(1), QStringList({"Slider 20, model 20", "bind()"}));
        window.tap("delete-model");
        slider->setValue(30);
        QCOMPARE(state(),
                 QStringList({"Effective mode: TwoWay", "Slider 30, model deleted",
                              "Nothing is carried any more."}));
        QCOMPARE(window.find<KELPushButton>("delete-model")->text(), "New model");
    }

    void bindingKeepsModeAndLevel()
    {
        GalleryWindow window(m_icons, "data-bind");
        window.tap("mode-4");
        window.tap("model-less");
        window.turnUpright();
        QVERIFY(window.find<KELRadioBox>("mode-4")->isCheck());
        QCOMPARE(window.find<KELSlideControl>("source-slider")->value(), 30.0F);
        QCOMPARE(window.find<KELRoundRectControl>("binding-state")->text(),
                 "Effective mode: OneWayToSource\nSlider 30, model 30\n");
    }

    void pressInsideThePanelFillsItsCountdown()
    {
        GalleryWindow window(m_icons, "non-modal-dialog");
        window.tap("open-settings");
        auto *panel = window.findChild<KELNonModalDialog *>("Settings panel");
        QVERIFY(panel && panel->isVisible());
        auto *bar = findIn<KELProcessBar>(*panel, "panel-countdown");
        QVERIFY(bar && bar->value() > 90);
        QTRY_VERIFY_WITH_TIMEOUT(bar->value() < 85, 5000);
        QVERIFY(panel->isVisible());
        const auto *slider = findIn<KELSlideControl>(*panel, "panel-slider");
        QTest::mouseClick(panel->viewport(), Qt::LeftButton, Qt::NoModifier,
                          slider->sceneBoundingRect().center().toPoint());
        QVERIFY(bar->value() > 90);
        QVERIFY(panel->isVisible());
        panel->hide();
    }

    void dialogAndPanelsGoWithTheirPage()
    {
        GalleryWindow window(m_icons, "dialog-base");
        window.tap("enter-pin");
        QPointer<KELDialogBase> dialog = window.findChild<KELDialogBase *>();
        QVERIFY(dialog && dialog->isVisible() && dialog->isModal());
        window.go("non-modal-dialog");
        QVERIFY(!dialog);
        window.tap("open-steps");
        QPointer<KELNonModalDialog> panel = KELNonModalDialog::activeDialog();
        QVERIFY(panel);
        window.turnUpright();
        QVERIFY(!panel);
        QVERIFY(!KELNonModalDialog::activeDialog());
        window.go("non-modal-helper");
        QCOMPARE(window.findChildren<KELNonModalDialog *>().size(), 0);
        window.tap("open-popup");
        QPointer<KELContentView> popup = window.viewport()->findChild<KELContentView *>();
        QVERIFY(popup && popup->isVisible());
        window.go("round-rect");
        QVERIFY(!popup);
    }

    void wrongPinMovesTheDialogForAMoment()
    {
        GalleryWindow window(m_icons, "dialog-base");
        window.tap("enter-pin");
        auto *dialog = window.findChild<KELDialogBase *>();
        QVERIFY(dialog && dialog->isVisible());
        const QPoint middle = dialog->pos();
        PlaceRecorder places(dialog);
        auto *key = findIn<KELPushButton>(*dialog->view(), "key-1");
        for (int i = 0; i < 4; ++i)
            Q_EMIT key->mouseClicked();
        // A busy machine may skip one side.
        QTRY_VERIFY(places.leftmost < middle.x() || places.rightmost > middle.x());
        QTRY_COMPARE(dialog->pos(), middle);
        QVERIFY(dialog->isVisible());
        dialog->reject();
    }

    void compositesKeepTheirSelection()
    {
        GalleryWindow window(m_icons, "combo-box");
        window.find<KELComboBox>("combo-programme")->setSelectIndex(3);
        window.find<KELPicker>("picker-zone")->setCurrentIndex(29);
        window.go("navigation-table");
        QVERIFY(!window.find<KELComboBox>("combo-programme"));
        window.find<KELNavigationTable>("table-plain")->setSelectIndex(2);
        window.turnUpright();
        QCOMPARE(window.find<KELNavigationTable>("table-titled")->selectIndex(), 0);
        QCOMPARE(window.find<KELNavigationTable>("table-plain")->selectIndex(), 2);
        window.go("combo-box");
        QCOMPARE(window.find<KELComboBox>("combo-programme")->selectedItem()->display(), "Boost");
        QCOMPARE(window.find<KELPicker>("picker-zone")->currentText(), "Zone 30");
    }

    void menusGoWithTheirPage()
    {
        GalleryWindow window(m_icons, "side-menu");
        const auto menus = [&] {
            return window.findChildren<KELSideMenu *>(QRegularExpression("\\A(Column|Row)\\z"));
        };
        QCOMPARE(menus().size(), 2);
        window.turnUpright();
        QCOMPARE(menus().size(), 2);
        window.go("round-rect");
        QCOMPARE(menus().size(), 0);
    }

private:
    IconSet m_icons;
};

KEL_TEST_MAIN(tst_GalleryWindow)
#include "tst_gallerywindow.moc"
