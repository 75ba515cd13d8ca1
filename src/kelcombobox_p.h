// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef KELCOMBOBOX_P_H
#define KELCOMBOBOX_P_H

#include "kelcombobox.h"
#include "kelitempointer_p.h"
#include "kellabel.h"
#include "keloutsidepress_p.h"

#include <QtCore/QPointer>

#include <memory>

QT_BEGIN_NAMESPACE
class QGraphicsSceneMouseEvent;
QT_END_NAMESPACE

class KELApplicationNotify;

class KELComboBoxItemPrivate
{
public:
    KELItemPointer<KELLabel> label;
    QVariant value;
    QString display;
    KELComboBoxPrivate *box = nullptr; // of which it is an entry
};

// The items that a combo box consists of. An application may have deleted each.
struct KELComboBoxParts
{
    KELItemPointer<KELPushButton> button;
    KELItemPointer<KELLabel> text;
    KELItemPointer<KELLabel> arrow;
    KELItemPointer<KELLabel> panel; // the list

    static void showText(const KELItemPointer<KELLabel> &label, const QString &text)
    {
        if (label)
            label->setText(text);
    }
};

// Opens the list of a combo box and closes it, also on a press outside. Two filters of the
// application watch for that. One watches presses that the scene delivers to items; it compares
// the position in the pressed item with the scene rectangles of button and panel, as promised. The
// other watches presses anywhere, and compares the place that was pressed.
class KELComboBoxList final : public KELOutsidePress::Client // NOLINT(*-virtual-class-destructor)
{
public:
    KELComboBoxList(KELComboBox *comboBox, KELComboBoxParts *parts);
    ~KELComboBoxList();

    void connectScenePresses();
    bool isOpen() const { return m_isOpen; }
    void toggle();
    void open();
    void close();
    void unwatchPresses();

    static QString arrowWhenClosed();

private:
    Q_DISABLE_COPY(KELComboBoxList)

    bool isHit(const QPolygonF &pixel) const override;
    void pressedOutside() override;
    bool isShown() const;
    void watchPresses();
    void handleScenePress(const QGraphicsSceneMouseEvent *event);

    KELComboBox *const m_comboBox;
    KELComboBoxParts *const m_parts;
    bool m_isOpen = false;
    bool m_isRaised = false; // the z-value is that of an open list
    int m_generation = 0; // how often the list was opened or closed
    int m_savedZ;
    QPointer<KELApplicationNotify> m_scenePresses;
    std::unique_ptr<KELOutsidePress> m_outsidePress; // while open
};

class KELComboBoxPrivate
{
public:
    explicit KELComboBoxPrivate(KELComboBox *comboBox) : q(comboBox) { }

    void createParts();
    void placeParts(qreal width, qreal textWidth, qreal arrowX, qreal height);
    qreal panelHeight() const;
    void setPanelHeight(qreal height);
    void showEnabled() const;
    void forget(KELComboBoxItem *item);

    KELComboBox *const q;
    KELComboBoxParts parts;
    KELComboBoxList list{q, &parts};
    QList<KELComboBoxItem *> items;
    int selectIndex = -1;
    int selectionGeneration = 0;
    bool isClearing = false;
};

#endif
