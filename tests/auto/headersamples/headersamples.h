// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef HEADERSAMPLES_H
#define HEADERSAMPLES_H

#include <KELScreen>
#include <QtWidgets/QGraphicsView>

QT_BEGIN_NAMESPACE
class QGraphicsAnchorLayout;
class QGraphicsGridLayout;
class QGraphicsLinearLayout;
class QStringListModel;
QT_END_NAMESPACE
class KELCheckBox;
class KELComboBox;
class KELLabel;
class KELNavigationTable;
class KELNavigationTableItem;
class KELNonModalDialog;
class KELProcessBar;
class KELPushButton;
class KELRadioBox;
class KELRange;
class KELRoundRectControl;
class KELRow;

// What the code of the reference calls.

class Model : public QObject
{
    Q_OBJECT

public Q_SLOTS:
    void setLockTime(int) { }
    void setDark(bool) { }
};

class Backlight : public QObject
{
    Q_OBJECT

public Q_SLOTS:
    void setPercent(double) { }
};

class Page : public QObject
{
    Q_OBJECT

public Q_SLOTS:
    void unlock() { }
};

// One function for each sample: those that call members of a class of the application,
class Screen : public QObject
{
    Q_OBJECT

public:
    void kelapplicationnotifySample();
    void kelcomboboxSample2(QGraphicsScene *scene);
    void kelnavigationtableSample(KELNavigationTable *table);
    void kelnonmodaldialogSample(KELRoundRectControl *controls);
    void kelnonmodalhelperSample2(KELPushButton *button, KELNonModalDialog *panel);
    void kelvaluesSample(QObject *heating, QObject *battery, KELLabel *label, KELProcessBar *bar,
                         KELRange *range, KELCheckBox *checkBox);

public Q_SLOTS:
    void wakeUp() { }
    void restoreButtons() { }
};

// and all others.
namespace HeaderSamples {

void kelcheckboxSample(QGraphicsScene *scene);
void kelcomboboxSample(KELComboBox *combo);
void kelcontentviewSample(QWidget *window);
void keldatabindSample2(QObject *checkBox, QObject *model);
void keldialogbaseSample();
void keliconfontSample(KELPushButton *button);
void kellabelSample(KELRoundRectControl *panel);
void kellineitemSample(KELRoundRectControl *panel);
void kelnavigationtableSample2(QGraphicsScene *scene, KELNavigationTableItem *homePage,
                               KELNavigationTableItem *settingsPage);
void kelnonmodalhelperSample(QWidget *panel);
void kelprocessbarSample(QGraphicsScene *scene);
void kelpushbuttonSample(QGraphicsScene *scene);
void kelpushbuttonSample2(KELPushButton *button);
void kelradioboxSample(QGraphicsScene *scene);
void kelradioboxSample2(KELRadioBox *box);
void kelradioboxSample3(QObject *scene, KELRadioBox *slow, KELRadioBox *fast);
void kelroundrectcontrolSample(KELPushButton *button);
void kelroundrectcontrolSample2(QGraphicsScene *scene);
void kelsidemenuSample(QWidget *window, const QList<KELPushButton *> &buttons);
void kelslidecontrolSample(QGraphicsScene *scene);
void keltextpixmapSample(KELPushButton *button);
void kellayoutSample(QGraphicsScene *scene, KELLabel *display);
void kellayoutSample2(QGraphicsAnchorLayout *anchors, QGraphicsGridLayout *grid,
                      KELPushButton *stop, KELCheckBox *switchBox, KELLabel *display);
void kellistSample2(QGraphicsLinearLayout *layout, QStringListModel &sensors);
void kelmotionSample();
void kelpartSample(KELRow *row);
void kelpickerSample(KELPage *page, Model *model, QGraphicsLinearLayout *layout);
void kelpindialogSample(Page *page, QGraphicsView *view);
void kelrangeSample(QGraphicsLinearLayout *layout, Backlight &backlight);
void kelrowSample(KELPage *page, Model *model, QGraphicsLinearLayout *layout, KELRow *brightness,
                  KELRow *textSize);
void kelscreenSample();
void kelstylefieldsSample(KELPushButton *button);
void kelthemeSample(KELScreen &screen);
void keltouchSample();
void kelvaluesSample2(KELProcessBar *bar, QObject *model);

} // namespace HeaderSamples

#endif
