// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "kelcombobox_p.h"

#include "kelapplicationnotify.h"
#include "kelrounding_p.h"

#include <QtCore/QCoreApplication>
#include <QtGui/QPolygonF>
#include <QtWidgets/QGraphicsSceneMouseEvent>

namespace {

constexpr qreal openZValue = 1;

QString arrowWhenOpen()
{
    return {QChar(0x25B2)};
}

// As a scene finds the item that is pressed.
bool isOn(const QGraphicsItem *item, const QPolygonF &pixel)
{
    return item != nullptr
        && item->mapFromScene(pixel).boundingRect().intersects(item->boundingRect());
}

// Compat: only the whole part of the z-value is given back when the list closes
int wholeZValue(const QGraphicsItem *item)
{
    return KELRounding::towardsZero(item->zValue(), KELRounding::anyInt);
}

} // namespace

KELComboBoxList::KELComboBoxList(KELComboBox *comboBox, KELComboBoxParts *parts) :
    m_comboBox(comboBox), m_parts(parts), m_savedZ(wholeZValue(comboBox))
{ }

KELComboBoxList::~KELComboBoxList() = default;

QString KELComboBoxList::arrowWhenClosed()
{
    return {QChar(0x25BC)};
}

void KELComboBoxList::connectScenePresses()
{
    m_scenePresses = new KELApplicationNotify(m_comboBox, QEvent::GraphicsSceneMousePress);
    QObject::connect(
        m_scenePresses, &KELApplicationNotify::notify, m_comboBox,
        [this](QObject * /*receiver*/, QEvent *event) {
            // Applications may emit notify() themselves, with any event.
            if (event->type() == QEvent::GraphicsSceneMousePress)
                handleScenePress(static_cast<QGraphicsSceneMouseEvent *>(event));
        },
        Qt::DirectConnection);
}

void KELComboBoxList::toggle()
{
    if (m_isOpen)
        close();
    else
        open();
}

// What is shown, hidden and raised emits signals of QGraphicsObject: a slot may open or close the
// list or delete the control.
void KELComboBoxList::open()
{
    const QPointer<KELComboBox> alive(m_comboBox);
    const int generation = ++m_generation;
    m_isOpen = true;
    KELComboBoxParts::showText(m_parts->arrow, arrowWhenOpen());
    watchPresses();
    if (m_parts->panel)
        m_parts->panel->show();
    if (!alive || generation != m_generation)
        return;
    // Compat: lowered when it was higher
    if (!m_isRaised)
        m_savedZ = wholeZValue(m_comboBox);
    m_isRaised = true;
    m_comboBox->setZValue(openZValue);
}

void KELComboBoxList::close()
{
    const QPointer<KELComboBox> alive(m_comboBox);
    const int generation = ++m_generation;
    m_isOpen = false;
    KELComboBoxParts::showText(m_parts->arrow, arrowWhenClosed());
    unwatchPresses();
    if (m_parts->panel)
        m_parts->panel->hide();
    if (alive && generation == m_generation && m_isRaised) {
        m_isRaised = false;
        m_comboBox->setZValue(m_savedZ);
    }
}

bool KELComboBoxList::isShown() const
{
    return m_comboBox->isVisible() && m_parts->panel && m_parts->panel->isVisible();
}

void KELComboBoxList::watchPresses()
{
    if (m_scenePresses)
        QCoreApplication::instance()->installEventFilter(m_scenePresses);
    m_outsidePress = std::make_unique<KELOutsidePress>(m_comboBox, this);
}

void KELComboBoxList::unwatchPresses()
{
    if (QCoreApplication *app = QCoreApplication::instance())
        app->removeEventFilter(m_scenePresses);
    m_outsidePress.reset();
}

bool KELComboBoxList::isHit(const QPolygonF &pixel) const
{
    return isOn(m_parts->button.get(), pixel) || isOn(m_parts->panel.get(), pixel);
}

void KELComboBoxList::pressedOutside()
{
    if (isShown())
        close();
}

// The notifier skips presses that arrive ignored: those that a view sends to the scene, which have
// no position in an item yet, and those that the scene sends to an item with the grab. Before it
// offers a press to any other item, the scene accepts it.
void KELComboBoxList::handleScenePress(const QGraphicsSceneMouseEvent *event)
{
    if (!m_isOpen || !isShown())
        return;
    // Compat: the position in the pressed item is used as a scene position
    const QPointF pos = event->pos();
    const bool isOnButton = m_parts->button && m_parts->button->sceneBoundingRect().contains(pos);
    if (!isOnButton && !m_parts->panel->sceneBoundingRect().contains(pos))
        close();
}
