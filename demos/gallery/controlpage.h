// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef CONTROLPAGE_H
#define CONTROLPAGE_H

#include "page.h"
#include "pageregistry.h"
#include "screens/finishedscreen.h"

class Drawer;
class KELPushButton;

// The page of a control: title, what the page shows, and drawers with the code and the log.
class ControlPage : public FinishedScreen
{
    Q_OBJECT

public:
    ControlPage(const PageHost &host, const PageEntry &entry);
    ~ControlPage() override;

protected:
    void build(QGraphicsWidget *content) override;

private:
    Q_DISABLE_COPY(ControlPage)
    void addTitle(QGraphicsWidget *content);
    void addDrawers(QGraphicsObject *parent);
    KELPushButton *addToggle(const QString &text, const QString &name, int drawer);
    void showDrawer(int drawer);
    int &openDrawer() const;

    const PageHost m_host;
    const PageEntry m_entry;
    QPointer<Page> m_page;
    Drawer *m_log = nullptr;
    Drawer *m_code = nullptr;
};

#endif
