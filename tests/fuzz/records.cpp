// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "controlclasses.h"
#include "fuzzbytes.h"
#include "fuzztargets.h"
#include "keltest.h"

#include <QtCore/QDebug>
#include <QtCore/QtMath>
#include <QtGui/QImage>
#include <QtGui/QPainter>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <memory>
#include <utility>
#include <vector>

namespace {

struct ControlClass
{
    const QMetaObject *meta;
    KELRoundRectControl *(*make)();
};

const std::vector<ControlClass> &controlClasses()
{
    static const std::vector<ControlClass> classes = [] {
        std::vector<ControlClass> all;
        forEachControl([&all](auto tag) {
            using Control = typename decltype(tag)::Type;
            all.push_back({&Control::staticMetaObject,
                           []() -> KELRoundRectControl * { return new Control; }});
        });
        return all;
    }();
    return classes;
}

float singleNumber(FuzzBytes *in)
{
    return float(in->number());
}

// Qt does not return from the outline of a scaled rectangle that is 1e38 px wide.
float usableWidth(float width)
{
    constexpr float mostPx = 1e9F;
    return qIsFinite(width) ? qBound(-mostPx, width, mostPx) : width;
}

void readRecord(FuzzBytes *in, KELRoundRectControlStyle *style)
{
    const int low = in->byte();
    const int high = in->byte();
    if (low & 1)
        style->backgroundBrush = in->brush();
    if (low & 2)
        style->foregroundBrush = in->brush();
    if (low & 4)
        style->borderBrush = in->brush();
    if (low & 8)
        style->borderWidth = usableWidth(singleNumber(in));
    if (low & 16) {
        style->xRadius = in->number();
        style->yRadius = in->number();
    }
    if (low & 32)
        style->text = in->text();
    if (low & 64)
        style->textFlags = in->flag() ? in->word() : in->integer();
    if (low & 128)
        style->trimText = false;
    if (high & 1)
        style->font = in->font();
    if (high & 2)
        style->margins = in->margins();
    if (high & 4) {
        const int width = in->below(40);
        const QSize size(width, in->below(40));
        style->pixmap = QPixmap(size);
        if (!size.isEmpty())
            style->pixmap.fill(in->color());
    }
    if (high & 8) {
        constexpr int mostPx = 300;
        const auto code = ushort(in->word());
        style->icon = KELIconFont(in->flag() ? code : ushort('A' + code % 26));
        style->iconSize = qBound(1, in->integer(), mostPx);
    }
    if (high & 16)
        style->isMouseDown = true;
    if (high & 32)
        style->isCheck = true;
}

void readTable(FuzzBytes *in, KELNavigationTable *table)
{
    auto *const style = static_cast<KELNavigationTableStyle *>(table->style());
    const int what = in->byte();
    if (what & 1)
        style->title = in->text();
    if (what & 2)
        style->titleBackgroundBrush = in->brush();
    if (what & 4)
        style->titleForegroundBrush = in->brush();
    if (what & 8)
        style->titleHeight = singleNumber(in);
    if (what & 16)
        style->tabHeight = singleNumber(in);
    style->showTitle = (what & 32) != 0;
    for (int pages = in->below(4); pages > 0; --pages) {
        auto *const page = new KELNavigationTableItem;
        readRecord(in, page->style());
        if (in->flag()) {
            page->setButtonBackground(in->brush());
            page->setButtonForeground(in->brush());
        }
        table->addItem(page);
    }
    table->setSelectIndex(in->below(4));
}

void readSlide(FuzzBytes *in, KELSlideControl *slide)
{
    for (int steps = in->below(5); steps > 0; --steps) {
        const int what = in->byte();
        const float number = singleNumber(in);
        switch (what % 4) {
        case 0:
            slide->setValue(number);
            break;
        case 1:
            slide->setMinimun(number);
            break;
        case 2:
            slide->setMaximun(number);
            break;
        default:
            slide->setStep(number);
        }
    }
}

// What the class has besides the record of the base.
void readOwnPart(FuzzBytes *in, KELRoundRectControl *control)
{
    if (auto *item = qobject_cast<KELComboBoxItem *>(control))
        item->setDisplay(in->text());
    if (auto *button = qobject_cast<KELPushButton *>(control)) {
        if (in->flag())
            static_cast<KELPushButtonStyle *>(button->style())->iconMargins = in->margins();
    } else if (auto *box = qobject_cast<KELCheckBox *>(control)) {
        if (in->flag())
            static_cast<KELCheckBoxStyle *>(box->style())->indicatorBrush = in->brush();
    } else if (auto *bar = qobject_cast<KELProcessBar *>(control)) {
        bar->setValue(in->integer());
    } else if (auto *slide = qobject_cast<KELSlideControl *>(control)) {
        readSlide(in, slide);
    } else if (auto *line = qobject_cast<KELLineItem *>(control)) {
        const QRectF points = in->rect();
        line->setLine(points.topLeft(), QPointF(points.width(), points.height()));
    } else if (auto *combo = qobject_cast<KELComboBox *>(control)) {
        for (int entries = in->below(4); entries > 0; --entries)
            combo->addItem(entries, in->text());
        combo->setSelectIndex(qint8(in->byte()));
    } else if (auto *table = qobject_cast<KELNavigationTable *>(control)) {
        readTable(in, table);
    }
}

bool isWithin(qreal value, qreal least, qreal most)
{
    return value >= least && value <= most;
}

// As it is, but for numbers beyond most; translations may be larger.
QTransform bounded(const QTransform &transform)
{
    const auto limited = [](qreal value, qreal most) {
        return qIsNaN(value) ? 0 : qBound(-most, value, most);
    };
    const auto moved = [&](qreal value) { return limited(value, 1e6); };
    const auto scaled = [&](qreal value) { return limited(value, 1000); };
    return {scaled(transform.m11()), scaled(transform.m12()), scaled(transform.m13()),
            scaled(transform.m21()), scaled(transform.m22()), scaled(transform.m23()),
            moved(transform.m31()),  moved(transform.m32()),  scaled(transform.m33())};
}

// Qt crashes where it draws text that is squashed: neither direction may become much smaller or
// larger.
bool isFitForText(const QTransform &transform)
{
    if (!transform.isAffine())
        return false;
    constexpr qreal least = 0.25;
    constexpr qreal most = 8;
    const qreal sum = transform.m11() * transform.m11() + transform.m12() * transform.m12()
        + transform.m21() * transform.m21() + transform.m22() * transform.m22();
    const qreal determinant = qAbs(transform.determinant());
    const qreal root = std::sqrt(qMax<qreal>(0, sum * sum - 4 * determinant * determinant));
    return std::sqrt(qMax<qreal>(0, sum - root) / 2) >= least
        && std::sqrt((sum + root) / 2) <= most;
}

bool isPlainText(const QString &text)
{
    return std::all_of(text.begin(), text.end(), [](QChar c) {
        return (c >= QLatin1Char(' ') && c <= QLatin1Char('~')) || c == QLatin1Char('\n');
    });
}

// Whether margins leave something of a rectangle.
bool isInside(const QMarginsF &margins, const QSizeF &size)
{
    return margins.left() >= 0 && margins.top() >= 0 && margins.right() >= 0
        && margins.bottom() >= 0 && margins.left() + margins.right() < size.width()
        && margins.top() + margins.bottom() < size.height();
}

// How far a control may paint beyond its rectangle, in item px; negative when nothing is promised.
qreal reach(const KELRoundRectControl &control)
{
    constexpr qreal nothingPromised = -1;
    const KELRoundRectControlStyle &style = *control.style();
    const QRectF rect = style.boundRect;
    const auto width = qreal(style.borderWidth);
    constexpr qreal mostPx = 1000;
    if (qobject_cast<const KELLineItem *>(&control) || qobject_cast<const KELComboBox *>(&control)
        || qobject_cast<const KELNavigationTable *>(&control)
        || qobject_cast<const KELNavigationTableItem *>(&control))
        return nothingPromised;
    if (!isWithin(rect.x(), -mostPx, mostPx) || !isWithin(rect.y(), -mostPx, mostPx)
        || !isWithin(rect.width(), 0, mostPx) || !isWithin(rect.height(), 0, mostPx)
        || !isWithin(width, 0, mostPx))
        return nothingPromised;
    // A text that is not clipped, and ink beyond the box of its characters.
    const auto *const entry = qobject_cast<const KELComboBoxItem *>(&control);
    const QString text = entry ? style.text + entry->display() : style.text;
    if ((style.textFlags & Qt::TextDontClip) || !isPlainText(text) || style.font.italic()
        || style.font.stretch() != QFont().stretch() || style.font.letterSpacing() < 0)
        return nothingPromised;
    // A picture in an area without size has its own.
    if (!isInside(style.margins, rect.size()) || !style.icon.isNull())
        return nothingPromised;
    const auto *const button = qobject_cast<const KELPushButton *>(&control);
    if (button && !style.pixmap.isNull())
        return nothingPromised;
    // An outline wider than the control, a thin one that is drawn as a pixel, a pixmap that is
    // placed at whole pixels, and the parts of fixed size.
    const qreal beyond = qMax<qreal>(0, width - qMin(rect.width(), rect.height()));
    constexpr qreal roundingPx = 2;
    constexpr qreal fixedPartsPx = 31;
    constexpr qreal shiftedKnobPx = 15; // by a rectangle as QRectF
    if (qobject_cast<const KELSlideControl *>(&control))
        return fixedPartsPx + shiftedKnobPx + 2 * width;
    const bool hasFixedParts = qobject_cast<const KELCheckBox *>(&control)
        || qobject_cast<const KELRadioBox *>(&control)
        || qobject_cast<const KELProcessBar *>(&control);
    return hasFixedParts ? fixedPartsPx + 2 * width : beyond + roundingPx;
}

} // namespace

QString KelFuzz::records(const QByteArray &bytes)
{
    constexpr qreal scales[] = {1, 0.5, 1.5, 2};

    FuzzBytes in(bytes);
    const ControlClass &controlClass
        = controlClasses()[size_t(in.below(int(controlClasses().size())))];
    const std::unique_ptr<KELRoundRectControl> control(controlClass.make());
    const int look = in.byte();
    const qreal scale = scales[look % 4];
    const bool isUpright = (look & 4) == 0;
    control->setEnabled((look & 8) == 0);
    if (look & 16) {
        control->setboundRect(in.rect());
    } else {
        const int width = in.byte();
        control->setboundRect(8, 8, width, in.byte());
    }
    const QRectF placed = control->style()->boundRect;
    readRecord(&in, control->style());
    if (look & 32)
        readOwnPart(&in, control.get());
    QTransform transform = QTransform::fromScale(scale, scale);
    if (!isUpright) {
        const QTransform any = bounded(in.transform());
        // A progress bar and the parts of a combo box have texts of their own.
        const bool hasOwnText = qobject_cast<KELProcessBar *>(control.get())
            || !control->childItems().isEmpty();
        const bool hasNoText = (look & 32) == 0 && !hasOwnText && control->style()->text.isEmpty()
            && control->style()->icon.isNull();
        if (hasNoText || isFitForText(any))
            transform = any;
    }
    const int pictureWidth = 16 + in.below(112);
    const QSize size(pictureWidth, 16 + in.below(112));

    if (qEnvironmentVariableIsSet("KEL_FUZZ_TRACE")) {
        QString text;
        QDebug(&text) << controlClass.meta->className() << control->boundingRect() << transform;
        std::fprintf(stderr, "%s\n", qPrintable(text));
    }

    const QColor background(200, 220, 240);
    const auto painted = [&] {
        QImage image(size, QImage::Format_ARGB32_Premultiplied);
        image.fill(background);
        QPainter painter(&image);
        painter.setTransform(transform);
        KelImage::paintTree(&painter, control.get());
        return image;
    };
    // Qt draws some characters otherwise the second time: a third picture decides.
    QImage image = painted();
    QImage again = painted();
    if (again != image)
        image = std::exchange(again, painted());
    if (again != image) {
        return QStringLiteral("%1 painted in two ways: %2")
            .arg(QLatin1String(controlClass.meta->className()), KelImage::difference(again, image));
    }

    // The colours of a check box may be beyond their range.
    const bool isCheckBox = qobject_cast<KELCheckBox *>(control.get());
    const QString warning = unexpectedWarning(
        isCheckBox ? "QColor::setRgb: RGB parameters out of range" : nullptr);
    if (!warning.isEmpty())
        return warning;
    // The knob of a slider does not follow a rectangle that is edited in the record.
    const bool isKnobElsewhere = qobject_cast<KELSlideControl *>(control.get())
        && control->style()->boundRect != placed;
    const qreal slack = isUpright && !isKnobElsewhere ? reach(*control) : -1;
    if (slack < 0)
        return QString();
    const QRectF kept = control->boundingRect().adjusted(-slack, -slack, slack, slack);
    QImage blank(size, QImage::Format_ARGB32_Premultiplied);
    blank.fill(background);
    QPainter(&image).fillRect(QRectF(kept.topLeft() * scale, kept.size() * scale).toAlignedRect(),
                              background);
    if (image == blank)
        return QString();
    QString text;
    QDebug(&text) << controlClass.meta->className() << control->boundingRect()
                  << "painted outside, at a scale of" << scale;
    return text;
}
