// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "pushbuttonpage.h"

#include "code/code.h"
#include "eventlog.h"
#include "iconset.h"
#include "parts.h"

#include <KELPushButton>

namespace {

constexpr qreal samplePx = 64;
constexpr qreal iconPx = 24;

enum Layout { GlyphAndCaption, GlyphAlone, CaptionAlone, PixmapAndCaption, PixmapAlone, Rectangle };
enum State { Normal, Pressed, Checked, Disabled };

const char *const layoutNames[] = {"Glyph and caption",  "Glyph alone",  "Caption alone",
                                   "Pixmap and caption", "Pixmap alone", "Rectangle alone"};
const char *const stateNames[] = {"Normal", "Pressed", "Checked", "Disabled"};
constexpr int stateCount = int(std::size(stateNames));

} // namespace

PushButtonPage::PushButtonPage(const PageHost &pageHost, const QRectF &area) :
    CardPage(pageHost, area, QStringLiteral("Push button"),
             QStringLiteral("Press, check, disable; six layouts in four states"))
{
    addLiveButtons();
    for (int layout = 0; layout < int(std::size(layoutNames)); ++layout)
        addLayout(layout);
}

void PushButtonPage::addLiveButtons()
{
    KELPushButton *press = Code::newPushButton();
    press->setObjectName(QStringLiteral("press-me"));
    host.log->watch(press, QStringLiteral("Press me"));

    auto *check = new KELPushButton;
    check->setObjectName(QStringLiteral("check-me"));
    check->setText(QStringLiteral("Check me"));
    check->setCheck(remembered(QStringLiteral("checked")) != 0);
    connect(check, &KELPushButton::mouseClicked, this, [this, check] {
        check->setCheck(!check->isCheck());
        remembered(QStringLiteral("checked")) = check->isCheck();
        host.log->add(check->text(),
                      check->isCheck() ? QStringLiteral("checked") : QStringLiteral("unchecked"));
    });

    auto *toggle = new KELPushButton;
    toggle->setObjectName(QStringLiteral("disable"));
    toggle->setText(QStringLiteral("Disable"));
    connect(toggle, &KELPushButton::mouseClicked, press, [this, press, toggle] {
        press->setEnabled(!press->isEnabled());
        toggle->setText(press->isEnabled() ? QStringLiteral("Disable") : QStringLiteral("Enable"));
        host.log->add(QStringLiteral("Press me"),
                      press->isEnabled() ? QStringLiteral("enabled") : QStringLiteral("disabled"));
    });
    addSamples(newCard(QStringLiteral("Press it; its code is shown")), {{press, QString(), 0, 56}});
    addSamples(newCard(QStringLiteral("Check one button, disable another")),
               {{check, QString(), 0, 56}, {toggle, QString(), 0, 56}}, 120);
}

void PushButtonPage::addLayout(int layout)
{
    QVector<Sample> samples;
    for (int state = 0; state < stateCount; ++state) {
        samples.append(
            {newSample(layout, state), QLatin1String(stateNames[state]), samplePx, samplePx});
    }
    addSamples(newCard(QLatin1String(layoutNames[layout])), samples, samplePx);
}

KELPushButton *PushButtonPage::newSample(int layout, int state) const
{
    auto *button = new KELPushButton;
    auto *style = static_cast<KELPushButtonStyle *>(button->style());
    style->font = Theme::font(Theme::smallPx);
    style->iconSize = iconPx;
    // The pair of picture and caption is centred, with 6 px between them.
    style->iconMargins = QMarginsF(8, 10, 8, 3);
    style->margins = QMarginsF(2, 3, 2, 10);
    if (layout == GlyphAndCaption || layout == PixmapAndCaption || layout == CaptionAlone)
        button->setText(QStringLiteral("Home"));
    if (layout == GlyphAndCaption || layout == GlyphAlone)
        style->icon = host.icons->glyph(Icon::home);
    if (layout == PixmapAndCaption || layout == PixmapAlone)
        style->pixmap = Parts::landscape({int(samplePx), int(samplePx)});
    if (layout == GlyphAlone || layout == PixmapAlone)
        style->iconMargins = style->margins = QMarginsF(8, 8, 8, 8);
    style->isMouseDown = state == Pressed;
    style->isCheck = state == Checked;
    button->setEnabled(state != Disabled);
    if (state == Normal || state == Checked) {
        host.log->watch(button, QLatin1String(layoutNames[layout]));
        connect(button, &KELPushButton::mouseClicked, button,
                [button] { button->setCheck(!button->isCheck()); });
    } else {
        button->setAcceptedMouseButtons(Qt::NoButton);
    }
    return button;
}
