// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef KELPART_P_H
#define KELPART_P_H

#include <QtCore/QRectF>
#include <QtCore/QtGlobal>

#include <utility>

// A pointer to an item that somebody else owns and may delete: it is null from then on, already while the item
// is being destroyed, which QPointer is not. The item lives on when the pointer dies.
template <class Item>
class KELPart
{
public:
    KELPart() = default;
    ~KELPart()
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
    Q_DISABLE_COPY(KELPart)

    class Tracked : public Item
    {
    public:
        template <class... Arguments>
        explicit Tracked(KELPart *pointer, Arguments &&...arguments) :
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

        KELPart *m_pointer;
    };

    Tracked *m_item = nullptr;
};

#endif
