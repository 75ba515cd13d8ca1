// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef DATABINDPAGE_H
#define DATABINDPAGE_H

#include "cardpage.h"

#include <QtCore/QPointer>

#include <functional>

class KELDataBind;
class KELProcessBar;
class KELPushButton;
class KELRadioBoxGroup;
class KELSlideControl;
class LevelModel;

// KELDataBind: a slider bound to a model in every mode, also after the model is gone.
class DataBindPage : public CardPage
{
    Q_OBJECT

public:
    DataBindPage(const PageHost &host, const QRectF &area);

private:
    Q_DISABLE_COPY(DataBindPage)

    void addModes();
    void addObjects();
    void addCalls();
    KELPushButton *newButton(const QString &text, const QString &objectName);

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
