// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef FINISHEDSCREEN_H
#define FINISHEDSCREEN_H

#include <KELScreen>

class KELTheme;

/*
 * A page as a product has it. Its items are made anew whenever something changes that all of them
 * depend on: the size of the page, the direction, the language or the theme. So build() is the one
 * place that says how the screen looks, and what the screen shows lives in an object beside it.
 */
class FinishedScreen : public KELPage
{
    Q_OBJECT

public:
    // theme must outlive the page.
    explicit FinishedScreen(KELTheme *theme);

    // The language is another one.
    void retranslate();

protected:
    // Fills content, which has the size of the page and nothing in it yet.
    virtual void build(QGraphicsWidget *content) = 0;

    const KELTheme *theme() const;

    // Starts model whenever the page comes into sight, and stops it afterwards.
    template <typename Model>
    void runInSight(Model *model)
    {
        connect(this, &KELPage::entered, model, &Model::start);
        connect(this, &KELPage::left, model, &Model::stop);
        connect(this, &QObject::destroyed, model, &Model::stop);
    }

    void resizeEvent(QGraphicsSceneResizeEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    Q_DISABLE_COPY(FinishedScreen)
    void rebuild();

    KELTheme *const m_theme;
    QGraphicsWidget *m_content = nullptr;
};

#endif
