// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef QUICKWINDOW_H
#define QUICKWINDOW_H

#include <QtCore/QByteArray>
#include <QtCore/QSize>
#include <QtCore/QVariant>
#include <QtGui/QImage>

#include <memory>

// A window of Qt Quick, never shown, with one item that fills it, such as one of Qt Quick Controls
// 2, and the software renderer. Without Qt Quick it is never ready.
class QuickWindow
{
public:
    // Before there is any window.
    static void chooseSoftware();

    QuickWindow(const QSize &size, const QByteArray &item);
    ~QuickWindow();

    bool isReady() const;
    QByteArray reason() const { return m_reason; } // why it is not ready

    // Paints the whole window into a new picture, which is kept as a screen keeps it.
    void paint();
    QImage picture() const { return m_picture; }
    // The same, after a change of the item.
    void paintChanged();

    // Sets a property of the item, and calls a function of it.
    void set(const char *property, const QVariant &value);
    void call(const char *function);

private:
    Q_DISABLE_COPY(QuickWindow)

    class Parts;
    std::unique_ptr<Parts> m_parts;
    QByteArray m_reason;
    QImage m_picture;
};

#endif
