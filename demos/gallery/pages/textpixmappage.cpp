// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "textpixmappage.h"

#include "code/code.h"
#include "eventlog.h"

#include <KELPushButton>
#include <KELTextPixmap>
#include <QtGui/QLinearGradient>

namespace {

constexpr int fontSizesPx[] = {16, 20, 24};
constexpr QSizeF samplePx(240, 64);

QBrush rainbow(const QSize &size)
{
    QLinearGradient gradient(size.width() * 0.2, 0, size.width() * 0.8, 0);
    gradient.setColorAt(0, QColor(0xd6, 0x2e, 0x6c));
    gradient.setColorAt(0.5, QColor(0xe0, 0x7b, 0x1a));
    gradient.setColorAt(1, QColor(0x0b, 0x63, 0xce));
    return gradient;
}

struct Sample
{
    const char *caption;
    KELTextPixmap (*draw)(const QSize &size, const QFont &font);
};

const Sample samples[] = {
    {"Transparent",
     [](const QSize &size, const QFont &font) {
         return KELTextPixmap(QStringLiteral("Glass"), size, QColor(Qt::white), QBrush(Qt::NoBrush),
                              font);
     }},
    {"Solid",
     [](const QSize &size, const QFont &font) {
         return KELTextPixmap(QStringLiteral("Solid"), size, QColor(Theme::onAccent),
                              QColor(Theme::leaf), font);
     }},
    {"Gradient text brush",
     [](const QSize &size, const QFont &font) {
         return KELTextPixmap(QStringLiteral("Rainbow"), size, rainbow(size), QColor(Theme::card),
                              font);
     }},
    {"Wrapped",
     [](const QSize &size, const QFont &font) {
         return KELTextPixmap(QStringLiteral("A caption of several words"), size,
                              QColor(Theme::ink), QColor(Theme::accentTint), font);
     }},
    {"Too long: it wraps, and is cut below",
     [](const QSize &size, const QFont &font) {
         return KELTextPixmap(QStringLiteral("A line that is too long for its picture"), size,
                              QColor(Theme::ink), QColor(Theme::disabled), font);
     }},
};

} // namespace

TextPixmapPage::TextPixmapPage(const PageHost &pageHost, const QRectF &area) :
    CardPage(pageHost, area, QStringLiteral("Text pixmap"),
             QStringLiteral("Captions drawn into pictures, shown by base controls")),
    m_sizeButton(new KELPushButton)
{
    auto *shown = new KELRoundRectControl;
    shown->setAcceptedMouseButtons(Qt::NoButton);
    shown->style()->pixmap = Code::newBadge();
    addSamples(newCard(QStringLiteral("A badge: its code is shown")), {{shown, QString(), 96, 32}});
    addSamples(newCard(QStringLiteral("Another size for all pictures below")),
               {{m_sizeButton, QString(), 0, 56}});
    for (const auto &sample : samples) {
        auto *control = new KELRoundRectControl;
        control->setAcceptedMouseButtons(Qt::NoButton);
        control->style()->borderWidth = 0;
        control->style()->xRadius = control->style()->yRadius = 0;
        addSamples(newCard(QLatin1String(sample.caption)),
                   {{control, QString(), samplePx.width(), samplePx.height()}});
        m_samples.append(control);
    }
    // The transparent picture lets this through.
    QLinearGradient backdrop({0, 0}, {samplePx.width(), samplePx.height()});
    backdrop.setColorAt(0, QColor(0x3b, 0x6f, 0xd7));
    backdrop.setColorAt(1, QColor(0x8b, 0x41, 0xd0));
    m_samples.first()->style()->backgroundBrush = backdrop;

    m_sizeButton->setObjectName(QStringLiteral("font-size"));
    connect(m_sizeButton, &KELPushButton::mouseClicked, this, [this] {
        int &index = remembered(QStringLiteral("font"));
        index = (index + 1) % int(std::size(fontSizesPx));
        refresh();
        host.log->add(QStringLiteral("Text pixmap"), m_sizeButton->text());
    });
    refresh();
}

void TextPixmapPage::refresh()
{
    const int fontPx = fontSizesPx[remembered(QStringLiteral("font"))];
    for (int i = 0; i < m_samples.size(); ++i) {
        m_samples.at(i)->style()->pixmap = samples[i].draw(samplePx.toSize(),
                                                           Theme::font(fontPx, true));
        m_samples.at(i)->update();
    }
    m_sizeButton->setText(QStringLiteral("Font size: %1 px").arg(fontPx));
}
