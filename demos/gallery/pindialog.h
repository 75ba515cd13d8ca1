// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef PINDIALOG_H
#define PINDIALOG_H

#include <KELDialogBase>
#include <KELTheme>
#include <QtCore/QString>
#include <QtCore/QVector>

class KELRoundRectControl;

// A keypad for a PIN. The right one accepts, a wrong one shakes the dialog.
class PinDialog : public KELDialogBase
{
    Q_OBJECT

public:
    PinDialog(const QString &pin, QWidget *window);

    // Comes up in the middle of the window, and blocks it.
    void ask();

Q_SIGNALS:
    void shaken();

private:
    Q_DISABLE_COPY(PinDialog)

    void moveToMiddle();
    void addHeader(KELRoundRectControl *pad);
    void addKeys(KELRoundRectControl *pad);
    void press(const QString &key);
    void refuse();
    void refresh();

    KELTheme m_theme;
    const QString m_pin;
    QString m_entered;
    KELRoundRectControl *m_caption = nullptr;
    QVector<KELRoundRectControl *> m_dots;
};

#endif
