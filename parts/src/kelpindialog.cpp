// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "kelpindialog.h"

#include "kelglide_p.h"
#include "keltouch.h"
#include "kelveil_p.h"

#include <QtCore/QMetaObject>
#include <QtGui/QFontMetricsF>
#include <QtGui/QGuiApplication>
#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <QtWidgets/QGraphicsScene>
#include <QtWidgets/QGraphicsSceneContextMenuEvent>
#include <QtWidgets/QGraphicsView>

#include <kelpushbutton.h>

#include <array>
#include <cmath>

namespace {

constexpr QRgb dimColour = qRgba(0, 0, 0, 153);
constexpr int shakeMs = 400;
constexpr qreal shakePx = 12;
constexpr int shakeSwings = 3;
constexpr qreal dotPx = 14;
constexpr qreal ringWidthPx = 2;
constexpr qreal strokePx = 2;
constexpr qreal mostSpacingPx = 24;
constexpr qreal keypadShare = 0.55; // of the width, if there is little
constexpr int rows = 4;
constexpr int columns = 3;

enum Key : int { Cancel = 10, Remove = 11, keyCount = 12 };

qreal keySize(qreal room, int count, qreal gap)
{
    return std::floor((room - (count - 1) * gap) / count);
}

QPainterPath cross(qreal reach)
{
    QPainterPath path(QPointF(-reach, -reach));
    path.lineTo(reach, reach);
    path.moveTo(reach, -reach);
    path.lineTo(-reach, reach);
    return path;
}

// A tag that points to the digit which goes, with a cross in it.
QPainterPath removal(qreal reach, bool isMirrored)
{
    const qreal tip = isMirrored ? 2 * reach : -2 * reach;
    const qreal height = 1.5 * reach;
    QPainterPath path(QPointF(tip, 0));
    path.lineTo(tip / 4, height);
    path.lineTo(-tip, height);
    path.lineTo(-tip, -height);
    path.lineTo(tip / 4, -height);
    path.closeSubpath();
    path.addPath(cross(reach / 2).translated(tip / -3, 0));
    return path;
}

QPixmap picture(const QSize &size, const QPainterPath &path, const QBrush &brush)
{
    const qreal ratio = qApp->devicePixelRatio();
    QPixmap pixmap(size * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    const int x = size.width() / 2;
    const int y = size.height() / 2;
    painter.translate(x, y);
    painter.strokePath(path, QPen(brush, strokePx, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    return pixmap;
}

// -1 for another key.
int digitOf(const QKeyEvent *event)
{
    const int digit = event->key() - Qt::Key_0;
    const bool isPlain = (event->modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier)) == 0;
    return isPlain && digit >= 0 && digit <= 9 ? digit : -1;
}

} // namespace

class KELPinDialogPrivate
{
public:
    explicit KELPinDialogPrivate(KELPinDialog *dialog) : q(dialog) { }
    ~KELPinDialogPrivate() { wipe(); }

    bool isMirrored() const { return q->layoutDirection() == Qt::RightToLeft; }
    void makeKey(int index);
    void press(int index);
    void add(int digit);
    void removeLast();
    void wipe();
    void shakeNow();
    void followDirection(const QGraphicsScene *scene) const;
    void moveCard() const;
    bool close();
    void wasClosed();

    void layOut();
    void layOutWide(const QSizeF &room, qreal leastKey, qreal greatestKey);
    void layOutHigh(const QSizeF &room, qreal leastKey, qreal greatestKey);
    QSizeF keypadSize(const QSizeF &key) const;
    QRectF centred(const QSizeF &content);
    qreal captionHeight(qreal width, qreal most) const;
    void layOutHead(const QRectF &box);
    void layOutKeys(const QPointF &topLeft, const QSizeF &size);
    void dress(int index);

    void paintCard(QPainter *painter) const;
    void paintCaption(QPainter *painter) const;
    void paintDots(QPainter *painter) const;

    KELPinDialog *const q;
    std::array<KELPushButton *, keyCount> keys = {};
    QGraphicsWidget *keypad = nullptr;
    KELVeil veil;
    KELGlide shake;
    QString caption;
    QRectF card;
    QRectF captionBox;
    QRectF dotsBox;
    qreal gap = 0;
    int length = 4;
    int count = 0;
    std::array<char, KELPinDialog::mostDigits> digits = {};
    bool isOpen = false;
    bool isEntered = false;
};

void KELPinDialogPrivate::makeKey(int index)
{
    auto *key = new KELPushButton(keypad);
    keys[index] = key;
    key->setActive(false); // or the first panel in a scene becomes the active one
    if (index < Cancel)
        key->setText(QString(QLatin1Char(char('0' + index))));
    key->setIsMouseDownTemplate(
        [this](KELPushButtonStyle &look) { look.backgroundBrush = q->partStyle()->pressedBrush; });
    key->setProperty("ownStates", true); // for a theme
    // With a foreground a picture would make room for a caption.
    key->setIsDisableTemplate([this](KELPushButtonStyle &look) {
        if (look.pixmap.isNull())
            look.foregroundBrush = q->partStyle()->disabledBrush;
    });
    if (index == Cancel)
        QObject::connect(key, &KELPushButton::mouseClicked, q, &KELPinDialog::cancel);
    else
        QObject::connect(key, &KELPushButton::mousePress, q, [this, index] { press(index); });
}

void KELPinDialogPrivate::press(int index)
{
    if (index == Remove)
        removeLast();
    else
        add(index);
}

void KELPinDialogPrivate::add(int digit)
{
    if (isEntered || !isOpen)
        return;
    digits[count++] = char('0' + digit);
    q->update(card);
    if (count < length)
        return;
    isEntered = true;
    QString pin = QString::fromLatin1(digits.data(), count);
    Q_EMIT q->entered(pin);
    pin.fill(QLatin1Char('0'));
}

void KELPinDialogPrivate::removeLast()
{
    if (isEntered || count == 0)
        return;
    digits[--count] = 0;
    q->update(card);
}

// Compilers leave out what is written into memory that nobody reads again.
void KELPinDialogPrivate::wipe()
{
    volatile char *digit = digits.data();
    for (int i = 0; i < KELPinDialog::mostDigits; ++i)
        digit[i] = 0;
    count = 0;
    isEntered = false;
}

void KELPinDialogPrivate::shakeNow()
{
    shake.glideTo(0, shakeMs, q);
    moveCard();
}

void KELPinDialogPrivate::moveCard() const
{
    constexpr qreal fullTurn = 2 * 3.14159265358979;
    const qreal left = shake.timeLeft();
    const qreal x = std::round(shakePx * left * std::sin(left * shakeSwings * fullTurn));
    const QRectF before = card.translated(keypad->pos());
    keypad->setX(x);
    q->update(before | card.translated(x, 0));
}

// As a child item of a widget would.
void KELPinDialogPrivate::followDirection(const QGraphicsScene *scene) const
{
    const QList<QGraphicsView *> views = scene->views();
    if (views.isEmpty() || q->testAttribute(Qt::WA_SetLayoutDirection))
        return;
    const QPointer<KELPinDialog> self(q);
    self->setLayoutDirection(views.first()->layoutDirection());
    if (self)
        self->setAttribute(Qt::WA_SetLayoutDirection, false);
}

// Returns whether the dialog was open, and still lives.
bool KELPinDialogPrivate::close()
{
    if (!isOpen)
        return false;
    const QPointer<KELPinDialog> self(q);
    q->hide();
    if (self)
        veil.returnFocus();
    return !self.isNull();
}

// A slot of closed() may delete the dialog: not while Qt hides it.
void KELPinDialogPrivate::wasClosed()
{
    isOpen = false;
    wipe();
    shake.finish();
    moveCard();
    QMetaObject::invokeMethod(q, "closed", Qt::QueuedConnection);
    veil.uncover();
}

qreal KELPinDialogPrivate::captionHeight(qreal width, qreal most) const
{
    if (caption.isEmpty())
        return 0;
    const QRectF room(0, 0, width, most);
    const qreal height = QFontMetricsF(q->partStyle()->font)
                             .boundingRect(room, Qt::AlignCenter | Qt::TextWordWrap, caption)
                             .height();
    return qBound<qreal>(0, std::ceil(height), most);
}

// The caption and the dots stand in the middle of the box.
void KELPinDialogPrivate::layOutHead(const QRectF &box)
{
    const qreal most = qMax<qreal>(0, box.height() - dotPx - 2 * gap);
    const qreal height = captionHeight(box.width(), most);
    const qreal between = height > 0 ? 2 * gap : 0;
    const qreal top = box.top() + std::floor((box.height() - height - between - dotPx) / 2);
    captionBox = QRectF(box.left(), top, box.width(), height);
    dotsBox = QRectF(box.left(), captionBox.bottom() + between, box.width(), dotPx);
}

void KELPinDialogPrivate::layOutKeys(const QPointF &topLeft, const QSizeF &size)
{
    for (int i = 0; i < keyCount; ++i) {
        int place = i - 1;
        if (i == 0)
            place = 10;
        else if (i >= Cancel)
            place = (i == Cancel) != isMirrored() ? 9 : 11;
        const int line = place / columns;
        const QPointF pos(topLeft.x() + place % columns * (size.width() + gap),
                          topLeft.y() + line * (size.height() + gap));
        keys[i]->setPos(pos);
        keys[i]->setboundRect(QRectF(QPointF(), size));
        dress(i);
    }
}

QSizeF KELPinDialogPrivate::keypadSize(const QSizeF &key) const
{
    return {columns * key.width() + (columns - 1) * gap, rows * key.height() + (rows - 1) * gap};
}

// Places the dialog around its content, and returns the rectangle of that.
QRectF KELPinDialogPrivate::centred(const QSizeF &content)
{
    const QSizeF area = q->size();
    const QPointF corner(std::floor((area.width() - content.width()) / 2),
                         std::floor((area.height() - content.height()) / 2));
    const QRectF inner(corner, content);
    card = inner.adjusted(-2 * gap, -2 * gap, 2 * gap, 2 * gap);
    return inner;
}

void KELPinDialogPrivate::layOutWide(const QSizeF &room, qreal leastKey, qreal greatestKey)
{
    const qreal width = room.width() - 2 * gap;
    const qreal wanted = qMax(leastKey, keySize(keypadShare * width, columns, gap));
    const QSizeF key(qMax<qreal>(1, qMin(qMin(wanted, greatestKey), keySize(width, columns, gap))),
                     qMax<qreal>(1, qMin(greatestKey, keySize(room.height(), rows, gap))));
    const QSizeF pad = keypadSize(key);
    const QSizeF head(qBound<qreal>(0, width - pad.width(), pad.width()), pad.height());
    const QRectF inner = centred(QSizeF(head.width() + 2 * gap + pad.width(), pad.height()));
    const qreal padLeft = isMirrored() ? inner.left() : inner.right() - pad.width();
    const qreal headLeft = isMirrored() ? inner.right() - head.width() : inner.left();
    layOutHead(QRectF(QPointF(headLeft, inner.top()), head));
    layOutKeys(QPointF(padLeft, inner.top()), key);
}

// The caption gets what the keys leave at their least size.
void KELPinDialogPrivate::layOutHigh(const QSizeF &room, qreal leastKey, qreal greatestKey)
{
    QSizeF key(qMax<qreal>(1, qMin(greatestKey, keySize(room.width(), columns, gap))), leastKey);
    QSizeF pad = keypadSize(key);
    const qreal besideCaption = dotPx + 2 * gap;
    const qreal leftForCaption = room.height() - pad.height() - besideCaption - 2 * gap;
    qreal head = captionHeight(pad.width(), qMax<qreal>(0, leftForCaption));
    head += head > 0 ? besideCaption : dotPx;
    key.setHeight(
        qMax<qreal>(1, qMin(greatestKey, keySize(room.height() - head - 2 * gap, rows, gap))));
    pad = keypadSize(key);
    const QRectF inner = centred(QSizeF(pad.width(), head + 2 * gap + pad.height()));
    layOutHead(QRectF(inner.topLeft(), QSizeF(pad.width(), head)));
    layOutKeys(QPointF(inner.left(), inner.bottom() - pad.height()), key);
}

void KELPinDialogPrivate::layOut()
{
    const qreal spacing = q->partStyle()->spacing;
    gap = spacing > 0 ? std::floor(qMin(spacing, mostSpacingPx)) : 0;
    const QSizeF area = q->size();
    const QSizeF room(area.width() - 6 * gap, area.height() - 6 * gap);
    const qreal least = KELTouch::leastSize();
    const qreal greatest = std::floor(1.5 * least);
    if (area.width() > area.height())
        layOutWide(room, least, greatest);
    else
        layOutHigh(room, least, greatest);
    q->update();
}

void KELPinDialogPrivate::dress(int index)
{
    const KELPartStyle &style = *q->partStyle();
    KELPushButton *key = keys[index];
    KELRoundRectControlStyle *look = key->style();
    const QSizeF size = look->boundRect.size();
    const bool isDigit = index < Cancel;
    look->backgroundBrush = isDigit ? style.backgroundBrush : QBrush();
    look->foregroundBrush = isDigit ? style.foregroundBrush : QBrush();
    look->borderBrush = style.borderBrush;
    look->borderWidth = isDigit ? float(style.borderWidth) : 0;
    look->xRadius = look->yRadius = style.radius * 2 / 3;
    look->font = style.font;
    look->font.setPixelSize(qMax(1, int(size.height() * 2 / 5)));
    if (!isDigit) {
        const qreal reach = qMin(size.width(), size.height()) / 8;
        look->pixmap = picture(size.toSize(),
                               index == Cancel ? cross(reach) : removal(reach, isMirrored()),
                               q->isEnabled() ? style.foregroundBrush : style.disabledBrush);
    }
    key->update();
}

void KELPinDialogPrivate::paintCard(QPainter *painter) const
{
    const KELPartStyle &style = *q->partStyle();
    const qreal width = style.borderWidth > 0 ? style.borderWidth : 0;
    const qreal radius = style.radius > 0 ? style.radius : 0;
    painter->setPen(width > 0 ? QPen(style.borderBrush, width) : QPen(Qt::NoPen));
    painter->setBrush(style.backgroundBrush);
    const qreal inset = width / 2;
    painter->drawRoundedRect(card.adjusted(inset, inset, -inset, -inset), radius, radius);
}

void KELPinDialogPrivate::paintCaption(QPainter *painter) const
{
    const KELPartStyle &style = *q->partStyle();
    painter->setLayoutDirection(q->layoutDirection());
    painter->setFont(style.font);
    painter->setPen(QPen(q->isEnabled() ? style.foregroundBrush : style.disabledBrush, 1));
    painter->drawText(captionBox, Qt::AlignCenter | Qt::TextWordWrap, caption);
}

void KELPinDialogPrivate::paintDots(QPainter *painter) const
{
    const KELPartStyle &style = *q->partStyle();
    const qreal pitch = qMin(2 * dotPx, dotsBox.width() / length);
    const qreal radius = pitch / 4;
    const qreal first = dotsBox.center().x() - (length - 1) * pitch / 2;
    for (int i = 0; i < length; ++i) {
        const int place = isMirrored() ? length - 1 - i : i;
        const QPointF centre(first + place * pitch, dotsBox.center().y());
        const bool isFilled = i < count;
        const qreal inset = isFilled ? 0 : ringWidthPx / 2;
        painter->setPen(isFilled ? QPen(Qt::NoPen) : QPen(style.mutedBrush, ringWidthPx));
        painter->setBrush(isFilled ? style.accentBrush : QBrush());
        painter->drawEllipse(centre, radius - inset, radius - inset);
    }
}

KELPinDialog::KELPinDialog() : d(new KELPinDialogPrivate(this))
{
    d->keypad = new QGraphicsWidget(this);
    for (int i = 0; i < keyCount; ++i)
        d->makeKey(i);
    setActive(false);
    hide();
}

KELPinDialog::~KELPinDialog()
{
    delete d;
}

QString KELPinDialog::caption() const
{
    return d->caption;
}

void KELPinDialog::setCaption(const QString &caption)
{
    d->caption = caption;
    d->layOut();
}

int KELPinDialog::pinLength() const
{
    return d->length;
}

void KELPinDialog::setPinLength(int digits)
{
    d->length = qBound(1, digits, int(mostDigits));
    d->wipe();
    update();
}

bool KELPinDialog::isOpen() const
{
    return d->isOpen;
}

void KELPinDialog::open(QGraphicsScene *scene)
{
    if (!scene || d->isOpen)
        return;
    const QPointer<KELPinDialog> self(this);
    setParentItem(nullptr);
    if (self && this->scene() != scene)
        scene->addItem(this);
    if (self)
        d->followDirection(scene);
    if (!self || d->isOpen)
        return;
    d->isOpen = true;
    d->veil.cover(this);
    if (self && d->isOpen)
        show();
}

void KELPinDialog::styleChanged()
{
    KELPart::styleChanged();
    d->layOut();
}

void KELPinDialog::paint(QPainter *painter, const QStyleOptionGraphicsItem * /*option*/,
                         QWidget * /*widget*/)
{
    painter->fillRect(rect(), QColor::fromRgba(dimColour));
    painter->setRenderHint(QPainter::Antialiasing);
    painter->translate(d->keypad->pos());
    d->paintCard(painter);
    d->paintCaption(painter);
    d->paintDots(painter);
    painter->translate(-d->keypad->pos());
}

void KELPinDialog::accept()
{
    if (d->close())
        Q_EMIT accepted();
}

void KELPinDialog::reject()
{
    if (!d->isOpen)
        return;
    d->wipe();
    d->shakeNow();
    update(d->card);
}

void KELPinDialog::cancel()
{
    if (d->close())
        Q_EMIT cancelled();
}

void KELPinDialog::timerEvent(QTimerEvent *event)
{
    if (d->shake.tick(event->timerId()))
        d->moveCard();
    else
        KELPart::timerEvent(event);
}

// All keys are taken: none is for what is behind.
void KELPinDialog::keyPressEvent(QKeyEvent *event)
{
    event->accept();
    const int digit = digitOf(event);
    switch (event->key()) {
    case Qt::Key_Escape:
    case Qt::Key_Back:
    case Qt::Key_Cancel:
        cancel();
        break;
    case Qt::Key_Backspace:
    case Qt::Key_Delete:
        d->removeLast();
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Select:
        if (!d->isEntered && !event->isAutoRepeat())
            d->shakeNow();
        break;
    default:
        if (digit >= 0 && !event->isAutoRepeat())
            d->add(digit);
    }
}

void KELPinDialog::contextMenuEvent(QGraphicsSceneContextMenuEvent *event)
{
    event->accept();
}

void KELPinDialog::resizeEvent(QGraphicsSceneResizeEvent *event)
{
    KELPart::resizeEvent(event);
    d->layOut();
}

void KELPinDialog::changeEvent(QEvent *event)
{
    KELPart::changeEvent(event);
    if (event->type() == QEvent::LayoutDirectionChange || event->type() == QEvent::EnabledChange)
        d->layOut();
}

QVariant KELPinDialog::itemChange(GraphicsItemChange change, const QVariant &value)
{
    const bool isHidden = change == ItemVisibleHasChanged && !isVisible();
    const QPointer<KELPinDialog> self(this);
    if (d->isOpen && (isHidden || change == ItemSceneHasChanged))
        d->wasClosed();
    return self ? KELPart::itemChange(change, value) : value;
}
