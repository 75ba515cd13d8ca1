// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "kelstylefields.h"

#include "kelpart.h"
#include "kelstylerecord_p.h"

#include <QtCore/QLocale>

#include <kelcheckbox.h>
#include <kelcombobox.h>
#include <kellabel.h>
#include <kellineitem.h>
#include <kelnavigationtable.h>
#include <kelprocessbar.h>
#include <kelpushbutton.h>
#include <kelradiobox.h>
#include <kelslidecontrol.h>

#include <cmath>
#include <cstddef>
#include <memory>

QT_WARNING_DISABLE_GCC("-Winvalid-offsetof")

namespace {

using F = KELStyleField;

#define KEL_FIELD(Record, member, type)                          \
  {                                                              \
#    member, F::type, (unsigned short)(offsetof(Record, member)) \
  }

constexpr F baseFields[] = {
    KEL_FIELD(KELRoundRectControlStyle, boundRect, Rect),
    KEL_FIELD(KELRoundRectControlStyle, backgroundBrush, Brush),
    KEL_FIELD(KELRoundRectControlStyle, foregroundBrush, Brush),
    KEL_FIELD(KELRoundRectControlStyle, borderBrush, Brush),
    KEL_FIELD(KELRoundRectControlStyle, borderWidth, Float),
    KEL_FIELD(KELRoundRectControlStyle, xRadius, Real),
    KEL_FIELD(KELRoundRectControlStyle, yRadius, Real),
    KEL_FIELD(KELRoundRectControlStyle, text, Text),
    KEL_FIELD(KELRoundRectControlStyle, textFlags, Int),
    KEL_FIELD(KELRoundRectControlStyle, trimText, Bool),
    KEL_FIELD(KELRoundRectControlStyle, font, Font),
    KEL_FIELD(KELRoundRectControlStyle, contextMenu, Menu),
    KEL_FIELD(KELRoundRectControlStyle, margins, Margins),
    KEL_FIELD(KELRoundRectControlStyle, pixmap, Pixmap),
    KEL_FIELD(KELRoundRectControlStyle, icon, Glyph),
    KEL_FIELD(KELRoundRectControlStyle, iconSize, PositiveInt),
    KEL_FIELD(KELRoundRectControlStyle, isMouseDown, State),
    KEL_FIELD(KELRoundRectControlStyle, isCheck, State),
    {nullptr, F::State, 0},
};
constexpr F pushButtonFields[] = {
    KEL_FIELD(KELPushButtonStyle, iconMargins, Margins),
    {nullptr, F::State, 0},
};
constexpr F checkBoxFields[] = {
    KEL_FIELD(KELCheckBoxStyle, indicatorBrush, Brush),
    {nullptr, F::State, 0},
};
constexpr F tableFields[] = {
    KEL_FIELD(KELNavigationTableStyle, title, Text),
    KEL_FIELD(KELNavigationTableStyle, titleBackgroundBrush, Brush),
    KEL_FIELD(KELNavigationTableStyle, titleForegroundBrush, Brush),
    KEL_FIELD(KELNavigationTableStyle, titleHeight, Float),
    KEL_FIELD(KELNavigationTableStyle, tabHeight, Float),
    KEL_FIELD(KELNavigationTableStyle, showTitle, Bool),
    {nullptr, F::State, 0},
};
constexpr F tableItemFields[] = {
    KEL_FIELD(KELNavigationTableItemStyle, buttonBackground, Brush),
    KEL_FIELD(KELNavigationTableItemStyle, buttonForeground, Brush),
    {nullptr, F::State, 0},
};
constexpr F noFields[] = {{nullptr, F::State, 0}};
constexpr F partFields[] = {
    KEL_FIELD(KELPartStyle, backgroundBrush, Brush),
    KEL_FIELD(KELPartStyle, pressedBrush, Brush),
    KEL_FIELD(KELPartStyle, selectedBrush, Brush),
    KEL_FIELD(KELPartStyle, selectedForegroundBrush, Brush),
    KEL_FIELD(KELPartStyle, foregroundBrush, Brush),
    KEL_FIELD(KELPartStyle, mutedBrush, Brush),
    KEL_FIELD(KELPartStyle, disabledBrush, Brush),
    KEL_FIELD(KELPartStyle, borderBrush, Brush),
    KEL_FIELD(KELPartStyle, accentBrush, Brush),
    KEL_FIELD(KELPartStyle, accentForegroundBrush, Brush),
    KEL_FIELD(KELPartStyle, trackBrush, Brush),
    KEL_FIELD(KELPartStyle, knobBrush, Brush),
    KEL_FIELD(KELPartStyle, borderWidth, Real),
    KEL_FIELD(KELPartStyle, radius, Real),
    KEL_FIELD(KELPartStyle, margins, Margins),
    KEL_FIELD(KELPartStyle, spacing, Real),
    KEL_FIELD(KELPartStyle, rowHeight, Real),
    KEL_FIELD(KELPartStyle, font, Font),
    KEL_FIELD(KELPartStyle, secondaryFont, Font),
    KEL_FIELD(KELPartStyle, iconSize, Int),
    {nullptr, F::State, 0},
};

template <class Object>
QGraphicsObject *makeOne()
{
    return new Object;
}

struct Kind
{
    const QMetaObject *meta;
    QGraphicsObject *(*make)();
    const F *fields;
    const F *ownFields;
};

const Kind allKinds[] = {
    {&KELComboBoxItem::staticMetaObject, makeOne<KELComboBoxItem>, baseFields, pushButtonFields},
    {&KELPushButton::staticMetaObject, makeOne<KELPushButton>, baseFields, pushButtonFields},
    {&KELCheckBox::staticMetaObject, makeOne<KELCheckBox>, baseFields, checkBoxFields},
    {&KELRadioBox::staticMetaObject, makeOne<KELRadioBox>, baseFields, noFields},
    {&KELLabel::staticMetaObject, makeOne<KELLabel>, baseFields, noFields},
    {&KELLineItem::staticMetaObject, makeOne<KELLineItem>, baseFields, noFields},
    {&KELProcessBar::staticMetaObject, makeOne<KELProcessBar>, baseFields, noFields},
    {&KELSlideControl::staticMetaObject, makeOne<KELSlideControl>, baseFields, noFields},
    {&KELComboBox::staticMetaObject, makeOne<KELComboBox>, baseFields, noFields},
    {&KELNavigationTable::staticMetaObject, makeOne<KELNavigationTable>, baseFields, tableFields},
    {&KELNavigationTableItem::staticMetaObject, makeOne<KELNavigationTableItem>, baseFields,
     tableItemFields},
    {&KELRoundRectControl::staticMetaObject, makeOne<KELRoundRectControl>, baseFields, noFields},
    {&KELPart::staticMetaObject, makeOne<KELPart>, partFields, noFields},
};
constexpr int kindCount = int(sizeof(allKinds) / sizeof(allKinds[0]));

template <class Type>
const Type &at(const F &field, const char *record)
{
    return *reinterpret_cast<const Type *>(record + field.offset);
}

template <class Type>
Type &at(const F &field, char *record)
{
    return *reinterpret_cast<Type *>(record + field.offset);
}

QString toText(const QBrush &brush)
{
    if (brush.style() == Qt::NoBrush)
        return QStringLiteral("none");
    if (brush.style() != Qt::SolidPattern)
        return QStringLiteral("other");
    const QColor colour = brush.color();
    return colour.name(colour.alpha() < 255 ? QColor::HexArgb : QColor::HexRgb).toUpper();
}

QString toText(const qreal (&numbers)[4])
{
    QStringList texts;
    for (const qreal number : numbers)
        texts.append(QString::number(number, 'g', QLocale::FloatingPointShortest));
    return texts.join(u',');
}

bool fromText(qreal *number, const QString &text)
{
    bool isNumber = false;
    *number = text.toDouble(&isNumber);
    return isNumber && std::isfinite(*number);
}

bool fourFromText(qreal (&numbers)[4], const QString &text)
{
    const QVector<QStringRef> texts = text.splitRef(u',');
    bool isRight = texts.size() == 4;
    for (int i = 0; isRight && i < 4; ++i)
        isRight = fromText(&numbers[i], texts.at(i).toString());
    return isRight;
}

bool fromText(QBrush *brush, const QString &text)
{
    if (text == QLatin1String("none")) {
        *brush = QBrush(Qt::NoBrush);
        return true;
    }
    const QColor colour(text);
    if (!text.startsWith(u'#') || !colour.isValid())
        return false;
    *brush = colour;
    return true;
}

bool fromText(KELIconFont *glyph, const QString &text)
{
    bool isNumber = text == QLatin1String("none");
    const ushort code = isNumber ? 0 : text.toUShort(&isNumber, 16);
    if (isNumber)
        glyph->setIcon(QChar(code));
    return isNumber;
}

} // namespace

char *KELStyleRecord::of(const QGraphicsObject *object)
{
    if (const auto *part = qobject_cast<const KELPart *>(object))
        return reinterpret_cast<char *>(part->partStyle());
    const auto *control = qobject_cast<const KELRoundRectControl *>(object);
    return control ? reinterpret_cast<char *>(control->style()) : nullptr;
}

int KELStyleRecord::kinds()
{
    return kindCount;
}

int KELStyleRecord::kindOf(const QGraphicsObject *object)
{
    const QMetaObject *meta = object ? object->metaObject() : nullptr;
    for (; meta; meta = meta->superClass()) {
        for (int kind = 0; kind < kindCount; ++kind) {
            if (meta == allKinds[kind].meta)
                return kind;
        }
    }
    return -1;
}

const char *KELStyleRecord::nameOf(int kind)
{
    return allKinds[kind].meta->className();
}

QGraphicsObject *KELStyleRecord::make(int kind)
{
    return allKinds[kind].make();
}

bool KELStyleRecord::inherits(int kind, const QString &className)
{
    for (const QMetaObject *meta = allKinds[kind].meta; meta; meta = meta->superClass()) {
        if (className == QLatin1String(meta->className()))
            return true;
    }
    return false;
}

const KELStyleField *KELStyleRecord::field(const QGraphicsObject *object, int index)
{
    const int kind = kindOf(object);
    if (kind < 0)
        return nullptr;
    const F *found = allKinds[kind].fields;
    while (found->name && index-- > 0)
        ++found;
    if (!found->name) {
        for (found = allKinds[kind].ownFields; found->name && index-- > 0;)
            ++found;
    }
    return found->name ? found : nullptr;
}

const KELStyleField *KELStyleRecord::field(const QGraphicsObject *object, const QString &name)
{
    const F *found = nullptr;
    for (int i = 0; (found = field(object, i)) && name != QLatin1String(found->name);)
        ++i;
    return found;
}

bool KELStyleRecord::isEqual(const F &field, const char *one, const char *other)
{
    switch (field.type) {
    case F::Brush:
        return at<QBrush>(field, one) == at<QBrush>(field, other);
    case F::Real:
        return at<qreal>(field, one) == at<qreal>(field, other);
    case F::Float:
        return at<float>(field, one) == at<float>(field, other);
    case F::Int:
    case F::PositiveInt:
        return at<int>(field, one) == at<int>(field, other);
    case F::Bool:
    case F::State:
        return at<bool>(field, one) == at<bool>(field, other);
    case F::Text:
        return at<QString>(field, one) == at<QString>(field, other);
    case F::Font:
        return at<QFont>(field, one) == at<QFont>(field, other);
    case F::Margins:
        return at<QMarginsF>(field, one) == at<QMarginsF>(field, other);
    case F::Rect:
        return at<QRectF>(field, one) == at<QRectF>(field, other);
    case F::Glyph:
        return at<KELIconFont>(field, one).getIcon() == at<KELIconFont>(field, other).getIcon();
    case F::Pixmap:
        return at<QPixmap>(field, one).cacheKey() == at<QPixmap>(field, other).cacheKey();
    case F::Menu:
        break;
    }
    return at<QMenu *>(field, one) == at<QMenu *>(field, other);
}

void KELStyleRecord::copy(const F &field, char *to, const char *from)
{
    switch (field.type) {
    case F::Brush:
        at<QBrush>(field, to) = at<QBrush>(field, from);
        break;
    case F::Real:
        at<qreal>(field, to) = at<qreal>(field, from);
        break;
    case F::Float:
        at<float>(field, to) = at<float>(field, from);
        break;
    case F::Int:
    case F::PositiveInt:
        at<int>(field, to) = at<int>(field, from);
        break;
    case F::Bool:
        at<bool>(field, to) = at<bool>(field, from);
        break;
    case F::Text:
        at<QString>(field, to) = at<QString>(field, from);
        break;
    case F::Font:
        at<QFont>(field, to) = at<QFont>(field, from);
        break;
    case F::Margins:
        at<QMarginsF>(field, to) = at<QMarginsF>(field, from);
        break;
    case F::Rect:
        at<QRectF>(field, to) = at<QRectF>(field, from);
        break;
    case F::Glyph:
        at<KELIconFont>(field, to) = at<KELIconFont>(field, from);
        break;
    case F::Pixmap:
        at<QPixmap>(field, to) = at<QPixmap>(field, from);
        break;
    case F::Menu:
        at<QMenu *>(field, to) = at<QMenu *>(field, from);
        break;
    case F::State:
        break;
    }
}

QString KELStyleRecord::toText(const F &field, const char *record)
{
    switch (field.type) {
    case F::Brush:
        return ::toText(at<QBrush>(field, record));
    case F::Real:
        return QString::number(at<qreal>(field, record), 'g', QLocale::FloatingPointShortest);
    case F::Float:
        return QString::number(double(at<float>(field, record)), 'g', 6);
    case F::Int:
    case F::PositiveInt:
        return QString::number(at<int>(field, record));
    case F::Bool:
    case F::State:
        return at<bool>(field, record) ? QStringLiteral("true") : QStringLiteral("false");
    case F::Text:
        return at<QString>(field, record);
    case F::Font:
        return at<QFont>(field, record).toString();
    case F::Margins: {
        const QMarginsF &margins = at<QMarginsF>(field, record);
        return ::toText({margins.left(), margins.top(), margins.right(), margins.bottom()});
    }
    case F::Rect: {
        const QRectF &rect = at<QRectF>(field, record);
        return ::toText({rect.x(), rect.y(), rect.width(), rect.height()});
    }
    case F::Glyph: {
        const QChar glyph = at<KELIconFont>(field, record).getIcon();
        return glyph.isNull() ? QStringLiteral("none") : QString::number(glyph.unicode(), 16);
    }
    case F::Pixmap:
        return at<QPixmap>(field, record).isNull() ? QStringLiteral("none")
                                                   : QStringLiteral("other");
    case F::Menu:
        break;
    }
    return at<QMenu *>(field, record) ? QStringLiteral("other") : QStringLiteral("none");
}

bool KELStyleRecord::fromText(const F &field, char *record, const QString &text)
{
    qreal numbers[4] = {};
    bool isRight = false;
    switch (field.type) {
    case F::Brush:
        return ::fromText(&at<QBrush>(field, record), text);
    case F::Real:
        isRight = ::fromText(&numbers[0], text);
        if (isRight)
            at<qreal>(field, record) = numbers[0];
        return isRight;
    case F::Float:
        isRight = ::fromText(&numbers[0], text) && std::isfinite(float(numbers[0]));
        if (isRight)
            at<float>(field, record) = float(numbers[0]);
        return isRight;
    case F::Int:
    case F::PositiveInt: {
        const int number = text.toInt(&isRight);
        isRight = isRight && (field.type == F::Int || number > 0);
        if (isRight)
            at<int>(field, record) = number;
        return isRight;
    }
    case F::Bool:
        isRight = text == QLatin1String("true") || text == QLatin1String("false");
        if (isRight)
            at<bool>(field, record) = text == QLatin1String("true");
        return isRight;
    case F::Text:
        at<QString>(field, record) = text;
        return true;
    case F::Font: {
        QFont font;
        isRight = text.contains(u',') && font.fromString(text);
        if (isRight)
            at<QFont>(field, record) = font;
        return isRight;
    }
    case F::Margins:
        isRight = fourFromText(numbers, text);
        if (isRight)
            at<QMarginsF>(field, record) = QMarginsF(numbers[0], numbers[1], numbers[2],
                                                     numbers[3]);
        return isRight;
    case F::Rect:
        isRight = fourFromText(numbers, text);
        if (isRight)
            at<QRectF>(field, record) = QRectF(numbers[0], numbers[1], numbers[2], numbers[3]);
        return isRight;
    case F::Glyph:
        return ::fromText(&at<KELIconFont>(field, record), text);
    case F::Pixmap:
    case F::Menu:
    case F::State:
        break;
    }
    return false;
}

void KELStyleRecord::changed(QGraphicsObject *object)
{
    if (auto *part = qobject_cast<KELPart *>(object))
        part->styleChanged();
    else
        object->update();
}

KELStyleFields::KELStyleFields(QGraphicsObject *object) : m_object(object) { }

QStringList KELStyleFields::names() const
{
    QStringList all;
    for (int i = 0; const F *field = KELStyleRecord::field(m_object, i); ++i)
        all.append(QString::fromLatin1(field->name));
    return all;
}

QString KELStyleFields::text(const QString &name) const
{
    const F *const field = KELStyleRecord::field(m_object, name);
    return field ? KELStyleRecord::toText(*field, KELStyleRecord::of(m_object)) : QString();
}

// A rectangle goes the way that places what depends on it.
bool KELStyleFields::setText(const QString &name, const QString &text, QString *error)
{
    const F *const field = KELStyleRecord::field(m_object, name);
    char *const record = KELStyleRecord::of(m_object);
    QRectF before;
    if (field && field->type == F::Rect)
        before = at<QRectF>(*field, record);
    if (!field || !KELStyleRecord::fromText(*field, record, text)) {
        if (error)
            *error = field ? QStringLiteral("\"%1\" is no value for %2").arg(text, name)
                           : QStringLiteral("there is no field %1").arg(name);
        return false;
    }
    if (field->type == F::Rect) {
        const QRectF rect = at<QRectF>(*field, record);
        at<QRectF>(*field, record) = before;
        qobject_cast<KELRoundRectControl *>(m_object.data())->setboundRect(rect);
    }
    KELStyleRecord::changed(m_object);
    return true;
}

bool KELStyleFields::isDefault(const QString &name) const
{
    const F *const field = KELStyleRecord::field(m_object, name);
    if (!field)
        return false;
    const std::unique_ptr<QGraphicsObject> fresh(
        KELStyleRecord::make(KELStyleRecord::kindOf(m_object)));
    return KELStyleRecord::isEqual(*field, KELStyleRecord::of(m_object),
                                   KELStyleRecord::of(fresh.get()));
}

bool KELStyleFields::reset(const QString &name)
{
    const F *const field = KELStyleRecord::field(m_object, name);
    if (!field || field->type == F::State)
        return false;
    const std::unique_ptr<QGraphicsObject> fresh(
        KELStyleRecord::make(KELStyleRecord::kindOf(m_object)));
    KELStyleRecord::copy(*field, KELStyleRecord::of(m_object), KELStyleRecord::of(fresh.get()));
    KELStyleRecord::changed(m_object);
    return true;
}
