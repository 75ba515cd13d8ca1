// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include <kellabel.h>

#include <QtGui/QPainter>

// A plugin of an application: with it the library is loaded and unloaded.
extern "C" Q_DECL_EXPORT void paintCaption()
{
    KELLabel label;
    label.setText(QStringLiteral("A caption"));
    QImage image(300, 200, QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&image);
    label.paint(&painter, nullptr, nullptr);
}
