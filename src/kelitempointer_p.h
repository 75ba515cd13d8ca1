// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef KELITEMPOINTER_P_H
#define KELITEMPOINTER_P_H

#include <QtCore/QRectF>
#include <QtCore/QtGlobal>

#include <utility>

// Guarded pointer to an item that it creates and a parent owns. Unlike QPointer, the guard for all
// else, it is cleared before the item's base destructors run: their signals find it null. The
// pointer may be destroyed before the item.
template <class Item>
class KELItemPointer
{
public:
    KELItemPointer() = default;
    ~KELItemPointer()
    {
        if (m_item)
            m_item->m_pointer = nullptr;
    }

    template <class... Arguments>
    Item *create(Arguments &&...arguments)
    {
        m_item = new Tracked(this, std::forward<Arguments>(arguments)...);
        return m_item;
    }

    // Gives a control another rectangle, also in a shown scene with an index.
    void place(const QRectF &rect)
    {
        if (m_item)
            m_item->place(rect);
    }

    // NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDelete): ~Tracked() clears the pointer
    Item *get() const { return m_item; }
    Item *operator->() const { return m_item; }
    explicit operator bool() const { return m_item; }

private:
    Q_DISABLE_COPY(KELItemPointer)

    class Tracked : public Item
    {
    public:
        template <class... Arguments>
        explicit Tracked(KELItemPointer *pointer, Arguments &&...arguments) :
            Item(std::forward<Arguments>(arguments)...), m_pointer(pointer)
        { }
        ~Tracked() override
        {
            if (m_pointer)
                m_pointer->m_item = nullptr;
        }
        void place(const QRectF &rect)
        {
            this->prepareGeometryChange();
            this->setboundRect(rect);
            this->update();
        }

        KELItemPointer *m_pointer;
    };

    Tracked *m_item = nullptr;
};

#endif
