// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "headersamples.h"

#include <KELApplicationNotify>
#include <KELCheckBox>
#include <KELComboBox>
#include <KELComboBoxItem>
#include <KELContentView>
#include <KELDataBind>
#include <KELDialogBase>
#include <KELIconFont>
#include <KELLabel>
#include <KELLayout>
#include <KELLineItem>
#include <KELList>
#include <KELListDelegate>
#include <KELMotion>
#include <KELNavigationTable>
#include <KELNavigationTableItem>
#include <KELNonModalDialog>
#include <KELNonModalhelper>
#include <KELPage>
#include <KELPartStyle>
#include <KELPicker>
#include <KELPinDialog>
#include <KELProcessBar>
#include <KELPushButton>
#include <KELPushButtonStyle>
#include <KELRadioBox>
#include <KELRadioBoxGroup>
#include <KELRange>
#include <KELRoundRectControl>
#include <KELRow>
#include <KELScreen>
#include <KELSideMenu>
#include <KELSlideControl>
#include <KELStyleFields>
#include <KELTextPixmap>
#include <KELTheme>
#include <KELTouch>
#include <KELValues>
#include <QtCore/QDebug>
#include <QtCore/QStringListModel>
#include <QtWidgets/QGraphicsAnchorLayout>
#include <QtWidgets/QGraphicsGridLayout>
#include <QtWidgets/QGraphicsLinearLayout>

// The code of the reference, as it stands there.
// clang-format off

namespace {

bool isHeating = false;
bool isEco = false;
double speed = 0;
int opened = -1;

void setHeating(bool on) { isHeating = on; }
void setEco(bool on) { isEco = on; }
void setSpeed(double value) { speed = value; }
void open(int row) { opened = row; }

class ExactView : public KELContentView
{
public:
    explicit ExactView(QWidget *parent) : KELContentView(parent)
    {
        setFrameShape(QFrame::NoFrame);
    }

protected:
    void resizeEvent(QResizeEvent *event) override
    {
        KELContentView::resizeEvent(event);
        resetTransform();
    }
};

class CelsiusToFahrenheit final : public IKELValueConverter
{
public:
    QVariant Convert(QObject *, const QVariant &value) override
    {
        return value.toDouble() * 1.8 + 32;
    }
    QVariant ConvertBack(QObject *, const QVariant &value) override
    {
        return (value.toDouble() - 32) / 1.8;
    }
};

class TrendDelegate : public KELListDelegate
{
public:
    void paint(QPainter *painter, const QRectF &rect, const QModelIndex &index,
               const KELPartStyle &style, States states) override;
};

} // namespace

void Screen::kelapplicationnotifySample()
{
    auto *notify = new KELApplicationNotify(this, QEvent::MouseButtonPress);
    connect(notify, &KELApplicationNotify::notify, this, &Screen::wakeUp, Qt::DirectConnection);
    QCoreApplication::instance()->installEventFilter(notify);
}

void HeaderSamples::kelcheckboxSample(QGraphicsScene *scene)
{
    auto *heating = new KELCheckBox;
    heating->setboundRect(20, 20, 82, 32);
    heating->setCheck(true);
    QObject::connect(heating, &KELCheckBox::checkChanged,
                     [heating] { setHeating(heating->isCheck()); });
    scene->addItem(heating);
}

void HeaderSamples::kelcomboboxSample(KELComboBox *combo)
{
    combo->addItem(100, QObject::tr("Slow"));
    KELComboBoxItem *entry = combo->items().constLast();
    entry->setIsMouseDownTemplate([](KELPushButtonStyle &look) {
        look.backgroundBrush = QColor(0, 120, 215);
    });
}

void Screen::kelcomboboxSample2(QGraphicsScene *scene)
{
    auto *speed = new KELComboBox;
    speed->setboundRect(20, 20, 160, 40);
    speed->addItem(100, tr("Slow"));
    speed->addItem(250, tr("Fast"));
    speed->setSelectIndex(0);
    scene->addItem(speed);
}

void HeaderSamples::kelcontentviewSample(QWidget *window)
{
    auto *panel = new KELRoundRectControl;
    panel->setboundRect(0, 0, 400, 300);
    auto *view = new KELContentView(window);
    view->setContent(panel);
    view->move(20, 20);
}

void HeaderSamples::keldatabindSample2(QObject *checkBox, QObject *model)
{
    // The check box shows the model's property and changes it.
    KELDataBind::bind(checkBox, "check", model, "enabled", KELDataBind::TwoWay);
}

void HeaderSamples::keldialogbaseSample()
{
    KELDialogBase dialog;
    auto *ok = new KELPushButton;
    ok->setboundRect(QRectF(150, 180, 100, 50));
    dialog.view()->scene()->addItem(ok);
    QObject::connect(ok, &KELPushButton::mouseClicked, &dialog, &QDialog::accept);
    dialog.exec();
}

void HeaderSamples::keliconfontSample(KELPushButton *button)
{
    KELIconFont::installFont("/usr/share/fonts-font-awesome/fonts/fontawesome-webfont.ttf");
    button->style()->icon = KELIconFont(0xf015);
}

void HeaderSamples::kellabelSample(KELRoundRectControl *panel)
{
    auto *label = new KELLabel(panel);
    label->setboundRect(20, 10, 160, 30);
    label->setText(QObject::tr("Temperature"));
    label->style()->foregroundBrush = QColor(Qt::yellow);
}

void HeaderSamples::kellineitemSample(KELRoundRectControl *panel)
{
    auto *line = new KELLineItem(panel);
    line->setLine(QPointF(0, 40), QPointF(200, 40));
    line->style()->borderBrush = QColor(Qt::white);
    line->style()->borderWidth = 1;
}

void Screen::kelnavigationtableSample(KELNavigationTable *table)
{
    auto *page = new KELNavigationTableItem;
    page->setText(tr("Settings"));
    page->style()->icon = KELIconFont(0xf013);
    table->addItem(page);
}

void HeaderSamples::kelnavigationtableSample2(QGraphicsScene *scene, KELNavigationTableItem *homePage, KELNavigationTableItem *settingsPage)
{
    auto *table = new KELNavigationTable;
    table->setboundRect(0, 0, 800, 480);
    table->addItem(homePage);
    table->addItem(settingsPage);
    scene->addItem(table);
}

void Screen::kelnonmodaldialogSample(KELRoundRectControl *controls)
{
    auto *panel = new KELNonModalDialog;
    panel->setContent(controls);
    panel->enableTime(10000);
    connect(panel, &KELNonModalDialog::disappeared, this, &Screen::restoreButtons);
    KELNonModalDialog::showOne(panel);
}

void HeaderSamples::kelnonmodalhelperSample(QWidget *panel)
{
    // Closes on a press elsewhere in its parent, or after 5 s without a press.
    KELNonModalhelper::show(panel, KELNonModalhelper::TriggerParent, true, 5000);
}

void Screen::kelnonmodalhelperSample2(KELPushButton *button, KELNonModalDialog *panel)
{
    connect(button, &KELPushButton::mousePress, panel, [=] {
        if (panel->isVisible())
            panel->ignoreOnce();
    });
    connect(button, &KELPushButton::mouseClicked, panel, [=] {
        panel->setVisible(!panel->isVisible());
    });
}

void HeaderSamples::kelprocessbarSample(QGraphicsScene *scene)
{
    auto *bar = new KELProcessBar;
    bar->setboundRect(20, 20, 300, 30);
    QObject::connect(bar, &KELProcessBar::completed, [] { qInfo("done"); });
    bar->setValue(42);
    scene->addItem(bar);
}

void HeaderSamples::kelpushbuttonSample(QGraphicsScene *scene)
{
    auto *button = new KELPushButton;
    button->setboundRect(20, 20, 120, 60);
    button->setText(QObject::tr("Start"));
    QObject::connect(button, &KELPushButton::mouseClicked, [] { qInfo("started"); });
    scene->addItem(button);
}

void HeaderSamples::kelpushbuttonSample2(KELPushButton *button)
{
    button->setIsMouseDownTemplate([](KELPushButtonStyle &look) {
        look.backgroundBrush = QColor(0, 120, 215);
    });
}

void HeaderSamples::kelradioboxSample(QGraphicsScene *scene)
{
    auto *box = new KELRadioBox;
    box->setboundRect(20, 20, 40, 40);
    QObject::connect(box, &KELRadioBox::checkChanged, [box] { setEco(box->isCheck()); });
    scene->addItem(box);
}

void HeaderSamples::kelradioboxSample2(KELRadioBox *box)
{
    box->KELRoundRectControl::style()->borderBrush = QColor(60, 60, 60);
}

void HeaderSamples::kelradioboxSample3(QObject *scene, KELRadioBox *slow, KELRadioBox *fast)
{
    auto *group = new KELRadioBoxGroup(scene);
    group->addRadioBox(slow, 0); // the group starts with id 0: this box is checked at once
    group->addRadioBox(fast, 1);
    QObject::connect(group, &KELRadioBoxGroup::idChanged, [group] { setSpeed(group->id()); });
}

void HeaderSamples::kelroundrectcontrolSample(KELPushButton *button)
{
    button->style()->backgroundBrush = QColor(0, 120, 215);
    button->style()->borderWidth = 1;
    button->update();
}

void HeaderSamples::kelroundrectcontrolSample2(QGraphicsScene *scene)
{
    auto *control = new KELRoundRectControl;
    control->setboundRect(0, 0, 200, 60);
    control->setText(QObject::tr("Start"));
    control->setFlag(QGraphicsItem::ItemIsSelectable); // otherwise it gets no release and no click
    QObject::connect(control, &KELRoundRectControl::mouseClicked, [] { qInfo("tapped"); });
    scene->addItem(control);
}

void HeaderSamples::kelsidemenuSample(QWidget *window, const QList<KELPushButton *> &buttons)
{
    auto *menu = new KELSideMenu(window);
    menu->setOrientation(KELSideMenu::Vertical);
    menu->setSpace(2);
    for (KELPushButton *button : buttons)
        menu->addItem(button);
}

void HeaderSamples::kelslidecontrolSample(QGraphicsScene *scene)
{
    auto *speed = new KELSlideControl;
    speed->setMaximun(250);
    speed->setboundRect(20, 20, 300, 40);
    speed->setStep(5);
    QObject::connect(speed, &KELSlideControl::valueChanged, [speed] { setSpeed(speed->value()); });
    scene->addItem(speed);
}

void HeaderSamples::keltextpixmapSample(KELPushButton *button)
{
    button->style()->pixmap = KELTextPixmap("42", QSize(48, 48), Qt::white, Qt::darkGreen, QFont());
}

void HeaderSamples::kellayoutSample(QGraphicsScene *scene, KELLabel *display)
{
    auto *page = new QGraphicsWidget;
    auto *grid = new QGraphicsGridLayout(page);
    KELLayout::add(grid, display, 0, 0, 1, 4);
    for (const char *key : {"7", "8", "9", "/", "4", "5", "6", "*", "1", "2", "3", "-"}) {
        auto *button = new KELPushButton;
        button->setText(QString::fromLatin1(key));
        KELLayout::addCell(grid, button, 4);
    }
    page->setGeometry(0, 0, 480, 272);
    scene->addItem(page);
}

void HeaderSamples::kellayoutSample2(QGraphicsAnchorLayout *anchors, QGraphicsGridLayout *grid, KELPushButton *stop, KELCheckBox *switchBox, KELLabel *display)
{
    anchors->addCornerAnchors(KELLayout::item(stop), Qt::BottomRightCorner, //
                              anchors, Qt::BottomRightCorner);
    grid->setAlignment(KELLayout::item(switchBox), Qt::AlignRight);
    KELLayout::item(display)->setMinimumHeight(80);
}

void HeaderSamples::kellistSample2(QGraphicsLinearLayout *layout, QStringListModel &sensors)
{
    auto *list = new KELList;
    list->setModel(&sensors);
    QObject::connect(list, &KELList::clicked, [](const QModelIndex &index) { open(index.row()); });
    layout->addItem(list);
}

void HeaderSamples::kelmotionSample()
{
    KELMotion::setEnabled(false); // pages, knobs and lists arrive at once
}

void HeaderSamples::kelpartSample(KELRow *row)
{
    row->partStyle()->accentBrush = QColor(0, 120, 215);
    row->styleChanged();
}

void HeaderSamples::kelpickerSample(KELPage *page, Model *model, QGraphicsLinearLayout *layout)
{
    auto *picker = new KELPicker(page);
    picker->setCaption(QObject::tr("Lock after"));
    picker->setItems({"1 minute", "5 minutes", "1 hour"});
    picker->setCurrentIndex(1);
    QObject::connect(picker, &KELPicker::activated, model, &Model::setLockTime);
    layout->addItem(picker);
}

void HeaderSamples::kelpindialogSample(Page *page, QGraphicsView *view)
{
    auto *dialog = new KELPinDialog;
    dialog->setCaption(QObject::tr("Enter your PIN"));
    QObject::connect(dialog, &KELPinDialog::entered, dialog, [dialog](const QString &pin) {
        if (pin == "1234")
            dialog->accept();
        else
            dialog->reject();
    });
    QObject::connect(dialog, &KELPinDialog::accepted, page, &Page::unlock);
    QObject::connect(dialog, &KELPinDialog::closed, dialog, &QObject::deleteLater);
    dialog->open(view->scene());
}

void HeaderSamples::kelrangeSample(QGraphicsLinearLayout *layout, Backlight &backlight)
{
    auto *brightness = new KELRange;
    brightness->setRange(10, 100);
    brightness->setStep(5);
    brightness->setSuffix(" %");
    brightness->setBubbleShown(true);
    QObject::connect(brightness, &KELRange::valueChanged, &backlight, &Backlight::setPercent);
    layout->addItem(brightness);
}

void HeaderSamples::kelrowSample(KELPage *page, Model *model, QGraphicsLinearLayout *layout, KELRow *brightness, KELRow *textSize)
{
    auto *row = new KELRow(page);
    row->setGlyph(KELIconFont(0xf186));
    row->setCaption("Dark at night");
    row->setDetail("From sunset to sunrise");
    row->setEnd(KELRow::Switch);
    QObject::connect(row, &KELRow::checkedChanged, model, &Model::setDark);
    layout->addItem(row);
    KELRow::formCard({brightness, row, textSize}); // with an outline and round corners
}

void HeaderSamples::kelscreenSample()
{
    KELScreen screen;
    auto *page = new KELPage;
    auto *button = new KELPushButton(page);
    button->setboundRect(24, 24, 200, 56);
    screen.push(page);
    screen.showFullScreen();
}

void HeaderSamples::kelstylefieldsSample(KELPushButton *button)
{
    KELStyleFields fields(button);
    fields.setText("backgroundBrush", "#0B62D6");
    for (const QString &name : fields.names()) {
        if (!fields.isDefault(name))
            qInfo() << name << fields.text(name);
    }
}

void HeaderSamples::kelthemeSample(KELScreen &screen)
{
    KELTheme theme;
    theme.applyTo(screen.scene());
    theme.setScheme(KELTheme::Dark);
}

void HeaderSamples::keltouchSample()
{
    KELTouch::setPixelsPerMillimetre(800 / 154.0); // the panel does not report its size
}

void Screen::kelvaluesSample(QObject *heating, QObject *battery, KELLabel *label, KELProcessBar *bar, KELRange *range, KELCheckBox *checkBox)
{
    KELValues::show(heating, "temperature", label, "text", tr("%1 °C"), 1); // 21.5 °C
    KELValues::show(battery, "level", bar, "percent");
    KELValues::edit(heating, "target", range, "value");
    KELValues::edit(heating, "enabled", checkBox, "check");
}

void HeaderSamples::kelvaluesSample2(KELProcessBar *bar, QObject *model)
{
    KELDataBind::bind(KELValues::of(bar), "percent", model, "level", KELDataBind::TwoWay);
}
