// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef DATABINDPAGE_H
#define DATABINDPAGE_H

#include "page.h"

#include <QtCore/QPointer>

#include <functional>

class KELDataBind;
class KELProcessBar;
class KELPushButton;
class KELRadioBoxGroup;
class KELSlideControl;
class LevelModel;

// KELDataBind: a slider bound to a model in every mode, also after the model is gone.
class DataBindPage : public Page
{
    Q_OBJECT

public:
    DataBindPage(const PageHost &host, const QRectF &area);

private:
    Q_DISABLE_COPY(DataBindPage)

    void addModes(KELRoundRectControl *panel);
    void addSlider(const QRectF &row);
    void addModelRow(const QRectF &row);
    void addStateCard(const QRectF &rect);
    void addButtons(const QRectF &rect);
    KELPushButton *addLoggedButton(const QRectF &rect, const QString &text,
                                   const QString &objectName);

    void makeModel(int level);
    void changeLevel(int difference);
    void deleteOrMakeModel();
    void bindAsSelected();
    void bindAnew();
    void call(const QString &what, const std::function<void()> &function);
    void refresh();

    KELDataBind *const m_binding;
    KELRadioBoxGroup *const m_modes;
    KELSlideControl *m_slider = nullptr;
    KELProcessBar *m_bar = nullptr;
    KELRoundRectControl *m_state = nullptr;
    KELPushButton *m_deleteButton = nullptr;
    QPointer<LevelModel> m_model;
    QString m_lastCall;
};

#endif
