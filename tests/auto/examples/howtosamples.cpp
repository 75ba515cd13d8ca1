// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "howtosamples.h"

#include <KELCheckBox>
#include <KELIconFont>
#include <KELLabel>
#include <KELLayout>
#include <KELList>
#include <KELMotion>
#include <KELNonModalDialog>
#include <KELPicker>
#include <KELPinDialog>
#include <KELProcessBar>
#include <KELPushButton>
#include <KELRadioBox>
#include <KELRange>
#include <KELRow>
#include <KELScreen>
#include <KELTheme>
#include <KELTouch>
#include <KELValues>
#include <QtGui/QPixmapCache>
#include <QtWidgets/QGraphicsGridLayout>
#include <QtWidgets/QGraphicsLinearLayout>
#include <QtWidgets/QMenu>

// One function for each answer of docs/guide/howto.md.

void HowTo::fillTheScreen(KELScreen *screen)
{
    screen->showFullScreen(); // the first window on linuxfb and eglfs fills the screen anyway
}

void HowTo::openAPage(KELScreen *screen)
{
    auto *page = new KELPage;
    screen->push(page); // the screen owns it now
    screen->back(); // the page below is shown, this one is deleted
}

void HowTo::watchAPage(KELPage *page, QObject *sensor)
{
    QObject::connect(page, &KELPage::entered, sensor,
                     [sensor] { sensor->setProperty("on", true); });
    QObject::connect(page, &KELPage::left, sensor, [sensor] { sensor->setProperty("on", false); });
}

void HowTo::letPagesSlide(KELScreen *screen)
{
    screen->setSlideEnabled(true);
}

void HowTo::stopAllMotion()
{
    KELMotion::setEnabled(false);
}

void HowTo::stackControls(KELPage *page, KELLabel *label, KELPushButton *button)
{
    auto *column = new QGraphicsLinearLayout(Qt::Vertical, page);
    KELLayout::add(column, label);
    KELLayout::add(column, button);
    column->addStretch(); // what is left of the page
}

void HowTo::makeKeys(QGraphicsGridLayout *grid)
{
    for (int digit = 1; digit <= 9; ++digit) {
        auto *key = new KELPushButton;
        key->setText(QString::number(digit));
        KELLayout::addCell(grid, key, 3); // three in a row
    }
}

void HowTo::sizeAControl(KELPushButton *button)
{
    KELLayout::item(button)->setMinimumHeight(80); // item px
    KELLayout::item(button)->setMaximumWidth(240);
}

void HowTo::fillACard(KELRoundRectControl *card, KELLabel *label)
{
    auto *column = new QGraphicsLinearLayout(Qt::Vertical);
    KELLayout::add(column, label);
    KELLayout::setLayout(card, column);
}

void HowTo::placeByHand(QGraphicsScene *scene, KELPushButton *button)
{
    button->setboundRect(20, 20, 200, 56); // geometry first,
    scene->addItem(button); // then add it
}

void HowTo::mirror(KELScreen *screen)
{
    screen->setLayoutDirection(Qt::RightToLeft);
}

void HowTo::growACaption(KELLabel *label)
{
    label->setText("Outdoor temperature");
    KELLayout::updateHints(label);
}

void HowTo::enlarge(KELLabel *label)
{
    label->style()->font.setPixelSize(34);
    label->update();
}

void HowTo::wrap(KELLabel *label)
{
    label->style()->trimText = false; // otherwise a line ends in an ellipsis
}

void HowTo::alignACaption(KELLabel *label)
{
    label->style()->textFlags = Qt::AlignLeft | Qt::AlignVCenter;
}

void HowTo::showAGlyph(KELPushButton *button, const QString &fontPath)
{
    KELIconFont::installFont(fontPath); // once, when the application starts
    button->style()->icon = KELIconFont(0xf015);
    button->style()->iconSize = 24; // px
}

void HowTo::showAPicture(KELRoundRectControl *control, const QPixmap &picture)
{
    control->style()->pixmap = picture; // scaled to the rectangle, less the margins
}

void HowTo::reactToATap(KELPushButton *button, QObject *pump)
{
    QObject::connect(button, &KELPushButton::mouseClicked, pump,
                     [pump] { pump->setProperty("on", true); });
}

void HowTo::reactToAHold(KELPushButton *button, QObject *pump)
{
    QObject::connect(button, &KELPushButton::mouseLongPress, pump,
                     [pump] { pump->setProperty("flush", true); });
}

void HowTo::stayDown(KELPushButton *button)
{
    QObject::connect(button, &KELPushButton::mouseClicked, button,
                     [button] { button->setCheck(!button->isCheck()); });
}

void HowTo::disable(KELPushButton *button)
{
    button->setEnabled(false);
}

void HowTo::chooseThePressedLook(KELPushButton *button)
{
    button->setIsMouseDownTemplate([](KELPushButtonStyle &look) {
        look.backgroundBrush = QColor(0x0b, 0x62, 0xd6);
        look.foregroundBrush = QColor(Qt::white);
    });
}

void HowTo::round(KELPushButton *button)
{
    button->style()->xRadius = button->style()->yRadius = 12; // item px
}

void HowTo::openAMenu(KELPushButton *button, QMenu *menu)
{
    button->style()->contextMenu = menu; // deleted with the button
}

void HowTo::letThrough(KELLabel *caption)
{
    caption->setAcceptedMouseButtons(Qt::NoButton);
}

void HowTo::showAValue(QObject *boiler, KELLabel *label)
{
    KELValues::show(boiler, "celsius", label, "text", "%1 °C", 1); // one decimal
}

void HowTo::changeAValue(QObject *boiler, KELRange *range)
{
    KELValues::edit(boiler, "celsius", range, "value");
}

void HowTo::showProgress(KELProcessBar *bar)
{
    bar->setValue(42); // percent
}

void HowTo::takeANumber(KELRange *range)
{
    range->setRange(5, 30);
    range->setStep(0.5);
    range->setDecimals(1);
    range->setSuffix(" °C");
}

void HowTo::readASwitch(KELCheckBox *box, QObject *pump)
{
    QObject::connect(box, &KELCheckBox::checkChanged, pump,
                     [box, pump] { pump->setProperty("on", box->isCheck()); });
}

void HowTo::showRows(KELList *list, QAbstractItemModel *model)
{
    list->setModel(model); // the list does not own it
    list->setEmptyText("Nothing here yet");
}

void HowTo::reactToARow(KELList *list, QObject *machine)
{
    QObject::connect(list, &KELList::clicked, machine, [machine](const QModelIndex &index) {
        machine->setProperty("programme", index.row());
    });
}

void HowTo::scrollToARow(KELList *list)
{
    list->scrollTo(120);
}

void HowTo::chooseFromMany(KELPicker *picker, const QStringList &zones)
{
    picker->setCaption("Zone");
    picker->setItems(zones);
    picker->setCurrentIndex(0);
}

void HowTo::chooseFromFew(KELRadioBoxGroup *group, KELRadioBox *slow, KELRadioBox *fast)
{
    group->addRadioBox(slow, 0); // the group starts with id 0: this one is checked
    group->addRadioBox(fast, 1);
}

void HowTo::makeASetting(KELRow *row)
{
    row->setCaption("Dark at night");
    row->setDetail("From sunset to sunrise");
    row->setEnd(KELRow::Switch);
}

void HowTo::askForAPin(KELScreen *screen)
{
    auto *dialog = new KELPinDialog; // the scene's, once it has been open
    QObject::connect(dialog, &KELPinDialog::entered, dialog, [dialog](const QString &pin) {
        pin == "1234" ? dialog->accept() : dialog->reject(); // a wrong one shakes it
    });
    dialog->open(screen->scene());
}

void HowTo::showAPanel(KELNonModalDialog *panel)
{
    panel->enableTime(5000); // and so do 5 s without a press
    KELNonModalDialog::showOne(panel);
}

void HowTo::darken(KELTheme *theme, KELScreen *screen)
{
    theme->setScheme(KELTheme::Dark);
    theme->applyTo(screen->scene()); // what is there, and what comes later
}

void HowTo::useOwnColours(KELTheme *theme)
{
    theme->load("/etc/panel/theme.json"); // and again whenever the file changes
}

void HowTo::keepAColour(KELPushButton *stop)
{
    stop->style()->backgroundBrush = QColor(0xc4, 0x2b, 0x2b);
}

void HowTo::enlargeTargets()
{
    KELTouch::setLeastMillimetres(11); // 9 by default
}

void HowTo::keepPictures()
{
    QPixmapCache::setCacheLimit(32 * 1024); // kB; 10 MB by default
}
