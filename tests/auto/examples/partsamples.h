// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef PARTSAMPLES_H
#define PARTSAMPLES_H

#include <QtCore/QObject>

QT_BEGIN_NAMESPACE
class QGraphicsGridLayout;
class QGraphicsWidget;
class QStandardItemModel;
QT_END_NAMESPACE

class KELLabel;
class KELList;
class KELPage;
class KELPart;
class KELPicker;
class KELPinDialog;
class KELProcessBar;
class KELPushButton;
class KELRange;
class KELRow;
class KELScreen;
class KELTheme;

class Boiler : public QObject
{
    Q_OBJECT
    Q_PROPERTY(double temperature MEMBER m_temperature NOTIFY changed)
    Q_PROPERTY(int level MEMBER m_level NOTIFY changed)
    Q_PROPERTY(int target MEMBER m_target NOTIFY changed)
    Q_PROPERTY(bool on MEMBER m_isOn NOTIFY changed)

Q_SIGNALS:
    void changed();

private:
    double m_temperature = 21.5;
    int m_level = 80;
    int m_target = 40;
    bool m_isOn = false;
};

// What docs/guide/parts.md shows.
void setUpTouch();
void goToDetails(KELScreen *screen, KELRow *row, KELPushButton *backButton);
void showStatus(KELScreen *screen, KELTheme *theme, QGraphicsWidget *statusBar);
void fillKeypad(QGraphicsWidget *page);
void askBeforeLeaving(KELScreen *screen);
void dressScreen(KELScreen *screen, KELTheme *theme, KELLabel *warning);
void loadTheme(KELTheme *theme, const QString &path);
void listFields(KELPart *row);
void showBoiler(Boiler *boiler, KELLabel *label, KELProcessBar *bar, KELRange *range, KELRow *row);
void fillCard(KELPage *page);
KELList *newPumps(KELPage *page, QStandardItemModel *model);
KELPicker *newZones();
KELRange *newTarget(Boiler *boiler);
KELPinDialog *askForPin(KELScreen *screen);
KELPart *newLamp();

#endif
