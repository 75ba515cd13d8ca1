// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "labelpage.h"

#include "code/code.h"
#include "eventlog.h"
#include "iconset.h"
#include "parts.h"

#include <KELLabel>
#include <KELPushButton>

namespace {

constexpr QSizeF samplePx(120, 64);
constexpr QSizeF captionPx(160, 48);

KELLabel *newLabel(const QString &text)
{
    auto *label = new KELLabel;
    label->style()->text = text;
    label->style()->font = Theme::font(Theme::bodyPx);
    label->setAcceptedMouseButtons(Qt::NoButton);
    return label;
}

KELLabel *newAligned(const QString &text, int flags)
{
    KELLabel *label = newLabel(text);
    label->style()->textFlags = flags;
    label->style()->borderBrush = QColor(Theme::line);
    label->style()->borderWidth = 1;
    return label;
}

void dress(KELLabel *label)
{
    KELRoundRectControlStyle *style = label->style();
    style->backgroundBrush = QColor(Theme::accentTint);
    style->borderBrush = QColor(Theme::accent);
    style->borderWidth = 2;
    style->xRadius = style->yRadius = Theme::radius;
}

// It takes presses as a button does.
void makeSelectable(KELLabel *label)
{
    label->setFlag(QGraphicsItem::ItemIsSelectable);
    label->setAcceptHoverEvents(true);
    label->setAcceptTouchEvents(true);
    label->setAcceptedMouseButtons(Qt::LeftButton);
}

} // namespace

LabelPage::LabelPage(const PageHost &pageHost, const QRectF &area) :
    CardPage(pageHost, area, QStringLiteral("Label"),
             QStringLiteral("A caption, a picture or a glyph; white without a theme"))
{
    addLiveLabels();
    addCaptions();
    addPictures();
}

void LabelPage::addLiveLabels()
{
    addSamples(newCard(QStringLiteral("A caption; its code is shown")),
               {{Code::newLabel(), QString(), 0, Theme::touch}});

    // It ignores the press, so it gets no release.
    KELLabel *plain = newLabel(QStringLiteral("Plain label"));
    plain->setAcceptedMouseButtons(Qt::LeftButton | Qt::RightButton | Qt::MiddleButton);
    plain->setObjectName(QStringLiteral("plain-label"));
    plain->style()->backgroundBrush = QColor(Theme::accentTint);
    plain->style()->xRadius = plain->style()->yRadius = Theme::radius;
    host.log->watch(plain, plain->text());

    KELLabel *selectable = newLabel(QStringLiteral("Selectable"));
    selectable->setObjectName(QStringLiteral("selectable-label"));
    makeSelectable(selectable);
    dress(selectable);
    host.log->watch(selectable, selectable->text());
    addSamples(newCard(QStringLiteral("Touch them, and look at the signals")),
               {{plain, QString()}, {selectable, QString()}}, 120);

    auto *button = new KELPushButton;
    button->setObjectName(QStringLiteral("button-below"));
    KELLabel *caption = newLabel(QStringLiteral("On a button"));
    caption->setboundRect(0, 0, captionPx.width(), captionPx.height());
    caption->setParentItem(button);
    host.log->watch(button, QStringLiteral("Button below"));
    addSamples(newCard(QStringLiteral("A label lets presses through if told to")),
               {{button, QString(), captionPx.width(), captionPx.height()}});
}

void LabelPage::addCaptions()
{
    KELLabel *disabled = newLabel(QStringLiteral("Disabled"));
    disabled->setEnabled(false);
    addSamples(newCard(QStringLiteral("Two states")),
               {{newLabel(QStringLiteral("Enabled")), QString()}, {disabled, QString()}}, 120);
    addSamples(newCard(QStringLiteral("textFlags")),
               {{newAligned(QStringLiteral("Left"), Qt::AlignLeft | Qt::AlignTop), QString()},
                {newAligned(QStringLiteral("Centre"), Qt::AlignCenter), QString()},
                {newAligned(QStringLiteral("Right"), Qt::AlignRight | Qt::AlignBottom), QString()}},
               80);
    KELLabel *wrapped = newLabel(QStringLiteral("A caption that is too long for one line"));
    wrapped->style()->trimText = false;
    addSamples(newCard(QStringLiteral("trimText on: elided; off: wrapped")),
               {{newLabel(QStringLiteral("A caption that is too long for one line")), QString(), 0,
                 samplePx.height()},
                {wrapped, QString(), 0, samplePx.height()}},
               samplePx.width());
}

void LabelPage::addPictures()
{
    KELLabel *filled = newLabel(QStringLiteral("Filled"));
    dress(filled);
    KELLabel *picture = newLabel(QString());
    picture->style()->pixmap = Parts::landscape(samplePx.toSize());
    addSamples(newCard(QStringLiteral("backgroundBrush, borderBrush; pixmap")),
               {{filled, QString(), samplePx.width(), samplePx.height()},
                {picture, QString(), samplePx.width(), samplePx.height()}},
               samplePx.width());
    KELLabel *glyph = newLabel(QString());
    glyph->style()->icon = host.icons->glyph(Icon::star);
    glyph->style()->iconSize = 36;
    glyph->style()->foregroundBrush = QColor(Theme::warm);
    KELLabel *inset = newLabel(QStringLiteral("20, 10"));
    dress(inset);
    inset->style()->margins = QMarginsF(20, 10, 0, 0);
    inset->style()->textFlags = Qt::AlignLeft | Qt::AlignTop;
    addSamples(newCard(QStringLiteral("icon, iconSize; margins")),
               {{glyph, QString(), samplePx.width(), samplePx.height()},
                {inset, QString(), samplePx.width(), samplePx.height()}},
               samplePx.width());
}
