// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef CONTENTSTAGE_H
#define CONTENTSTAGE_H

#include "keltest.h"
#include "rows.h"

#include <kelcontentview.h>
#include <kelroundrectcontrol.h>

#include <QtCore/QPointer>

using ControlPointer = QPointer<KELRoundRectControl>;

inline KELRoundRectControl *newControl(qreal width = 60, qreal height = 20,
                                       KELRoundRectControl *parent = nullptr)
{
    auto *control = new KELRoundRectControl(parent);
    control->setboundRect(7, 9, width, height);
    return control;
}

inline KELRoundRectControl *newChild(KELRoundRectControl *parent)
{
    return newControl(5, 5, parent);
}

class View : public KELContentView
{
public:
    using KELContentView::KELContentView;

    // A new content.
    KELRoundRectControl *setNew(qreal width = 120, qreal height = 40)
    {
        KELRoundRectControl *control = newControl(width, height);
        setContent(control);
        return control;
    }
    // It is the content, and there is nothing else.
    bool hasOnly(KELRoundRectControl *control) const
    {
        return content() == control && scene()->items() == QList<QGraphicsItem *>({control});
    }
    void showAndWait()
    {
        show();
        QVERIFY(QTest::qWaitForWindowExposed(this));
    }
    // Its scene is the active one, so that items can have the focus.
    void activate()
    {
        show();
        QApplication::setActiveWindow(this);
        QVERIFY(QTest::qWaitForWindowActive(this));
        QTRY_VERIFY(scene()->isActive());
        setFocus();
    }
};

#endif
