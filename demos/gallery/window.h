// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef WINDOW_H
#define WINDOW_H

#include "page.h"

#include <KELScreen>
#include <KELTheme>
#include <QtCore/QTranslator>

class HomePage;

// The gallery: a list of pages, and the one that was chosen on top of it.
class Window : public KELScreen
{
    Q_OBJECT

public:
    enum Language : int { English, German, Arabic };

    Window(const QSize &size, EventLog *log, const IconSet *icons);
    ~Window() override;

    // The page of that index, or the list for -1.
    void showPage(int page);

    void setLook(KELTheme::Scheme look);
    QString lookName() const;
    void setLanguage(Language language);
    // Whether there are languages other than English.
    static bool isTranslated();
    QString languageName() const;

    // Where the control of that object name is, in window pixels; null when there is none. The
    // other views, menus, dialogs and panels, are searched, too, shown or not.
    QRect geometryOf(const QString &name) const;

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    Q_DISABLE_COPY(Window)
    void nextLook();
    void nextLanguage();

    QHash<QString, int> m_memory;
    KELTheme m_theme;
    const PageHost m_host;
    QTranslator m_translator;
    Language m_language = English;
    HomePage *m_home;
};

#endif
