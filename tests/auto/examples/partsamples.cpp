// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "partsamples.h"

#include <KELDataBind>
#include <KELLabel>
#include <KELLayout>
#include <KELList>
#include <KELMotion>
#include <KELPicker>
#include <KELPinDialog>
#include <KELProcessBar>
#include <KELPushButton>
#include <KELRange>
#include <KELRow>
#include <KELScreen>
#include <KELStyleFields>
#include <KELTheme>
#include <KELTouch>
#include <KELValues>

#include <QtCore/QDebug>
#include <QtGui/QPainter>
#include <QtGui/QStandardItemModel>
#include <QtWidgets/QGraphicsAnchorLayout>
#include <QtWidgets/QGraphicsGridLayout>
#include <QtWidgets/QGraphicsLinearLayout>
#include <QtWidgets/QGraphicsScene>

void setUpTouch()
{
    KELTouch::setPixelsPerMillimetre(800 / 154.0); // 800 px on 154 mm
    KELTouch::setLeastMillimetres(12); // for gloves
    KELMotion::setEnabled(false);
}

void goToDetails(KELScreen *screen, KELRow *row, KELPushButton *backButton)
{
    screen->setSlideEnabled(true);
    QObject::connect(row, &KELRow::clicked, screen, [screen] { screen->push(new KELPage); });
    QObject::connect(backButton, &KELPushButton::mouseClicked, screen, &KELScreen::back);
}

void askBeforeLeaving(KELScreen *screen)
{
    class Recipe : public KELPage
    {
    protected:
        bool backEvent() override { return isRunning; } // true: stay

    private:
        bool isRunning = true;
    };
    screen->push(new Recipe);
}

void showStatus(KELScreen *screen, KELTheme *theme, QGraphicsWidget *statusBar)
{
    statusBar->setZValue(1); // pages have 0
    screen->scene()->addItem(statusBar);
    theme->applyTo(statusBar);
}

void fillKeypad(QGraphicsWidget *page)
{
    auto *grid = new QGraphicsGridLayout;
    auto *display = new KELLabel;
    KELLayout::add(grid, display, 0, 0, 1, 3); // row, column, rows, columns
    for (const char key : {'7', '8', '9', '4', '5', '6', '1', '2', '3'}) {
        auto *button = new KELPushButton;
        button->setText(QChar::fromLatin1(key));
        KELLayout::addCell(grid, button, 3); // the next free one of 3 columns
    }
    page->setLayout(grid);
    KELLayout::item(display)->setMinimumHeight(80);

    auto *card = new KELRoundRectControl(page);
    card->setboundRect(20, 20, 300, 200);
    auto *anchors = new QGraphicsAnchorLayout;
    auto *stop = new KELPushButton;
    anchors->addCornerAnchors(KELLayout::item(stop), Qt::BottomRightCorner, anchors,
                              Qt::BottomRightCorner);
    KELLayout::setLayout(card, anchors); // a layout on a control

    stop->setText("Stop at once");
    KELLayout::updateHints(card); // a control does not tell its layout
}

void dressScreen(KELScreen *screen, KELTheme *theme, KELLabel *warning)
{
    theme->applyTo(screen->scene());
    theme->setScheme(KELTheme::HighContrast);

    warning->style()->foregroundBrush = theme->color(KELTheme::Bad);
    warning->update();
}

void loadTheme(KELTheme *theme, const QString &path)
{
    QObject::connect(theme, &KELTheme::failed, theme, [](int line, const QString &text) {
        qWarning("theme, line %d: %s", line, qUtf8Printable(text));
    });
    theme->load(path); // and again whenever the file changes
}

void listFields(KELPart *row)
{
    KELStyleFields fields(row);
    fields.setText("accentBrush", "#FF8800");
    for (const QString &name : fields.names())
        qInfo() << name << fields.text(name);
}

void showBoiler(Boiler *boiler, KELLabel *label, KELProcessBar *bar, KELRange *range, KELRow *row)
{
    KELValues::show(boiler, "temperature", label, "text", "%1 °C", 1); // 21.5 °C
    KELValues::show(boiler, "level", bar, "percent");
    KELValues::edit(boiler, "target", range, "value");
    KELValues::edit(boiler, "on", row, "checked");

    KELDataBind::bind(KELValues::of(bar), "percent", boiler, "level", KELDataBind::TwoWay);
}

void fillCard(KELPage *page)
{
    auto *column = new QGraphicsLinearLayout(Qt::Vertical, page);
    column->setSpacing(0); // for the card
    QList<KELRow *> rows;
    for (const char *speed : {"Slow", "Usual", "Fast"}) {
        auto *row = new KELRow;
        row->setCaption(speed);
        row->setEnd(KELRow::Radio);
        column->addItem(row);
        rows.append(row);
    }
    rows.at(1)->setChecked(true);
    rows.at(2)->setDetail("Not at night");
    KELRow::formCard(rows);
}

KELList *newPumps(KELPage *page, QStandardItemModel *model)
{
    auto *pump = new QStandardItem("Pump 1");
    pump->setData("Ground floor", KELList::DetailRole);
    pump->setData("3.2 bar", KELList::ValueRole);
    pump->setCheckable(true); // a switch, which a tap turns on and off
    model->appendRow(pump);

    auto *list = new KELList(page);
    list->setModel(model);
    list->setEmptyText("No pumps");
    QObject::connect(list, &KELList::clicked, page,
                     [](const QModelIndex &index) { qInfo() << index.data().toString(); });
    return list;
}

KELPicker *newZones()
{
    auto *picker = new KELPicker;
    picker->setCaption("Zone");
    picker->setPlaceholder("None");
    picker->setItems({"Kitchen", "Hall", "Cellar"}); // or setModel()
    QObject::connect(picker, &KELPicker::activated, picker,
                     [](int index) { qInfo("the user chose %d", index); });
    return picker;
}

KELRange *newTarget(Boiler *boiler)
{
    auto *range = new KELRange;
    range->setRange(5, 30); // before the value
    range->setStep(0.5);
    range->setValue(21.5);
    range->setTickInterval(5);
    range->setBubbleShown(true);
    range->setDecimals(1);
    range->setSuffix(" °C");
    QObject::connect(range, &KELRange::released, boiler,
                     [boiler, range] { boiler->setProperty("target", range->value()); });
    return range;
}

KELPinDialog *askForPin(KELScreen *screen)
{
    auto *dialog = new KELPinDialog;
    dialog->setCaption("Enter the PIN");
    QObject::connect(dialog, &KELPinDialog::entered, dialog, [dialog](const QString &pin) {
        if (pin == "1234")
            dialog->accept();
        else
            dialog->reject();
    });
    QObject::connect(dialog, &KELPinDialog::accepted, screen,
                     [screen] { screen->push(new KELPage); });
    QObject::connect(dialog, &KELPinDialog::closed, dialog, &QObject::deleteLater);
    dialog->open(screen->scene());
    return dialog;
}

KELPart *newLamp()
{
    class Lamp : public KELPart
    {
    public:
        void paint(QPainter *painter, const QStyleOptionGraphicsItem * /*option*/,
                   QWidget * /*widget*/) override
        {
            const KELPartStyle &style = *partStyle();
            painter->fillRect(rect(), isOn ? style.accentBrush : style.trackBrush);
        }

    protected:
        void releaseEvent(const QPointF & /*pos*/, bool isTap) override
        {
            isOn = isOn != isTap;
            update();
        }

    private:
        bool isOn = false;
    };

    auto *lamp = new Lamp;
    lamp->setPreferredSize(120, KELTouch::leastSize());
    return lamp;
}
