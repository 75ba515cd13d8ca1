// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef MONKEY_THINGS_H
#define MONKEY_THINGS_H

#include <keldatabind.h>

#include <QtGui/QBrush>
#include <QtGui/QPixmap>

namespace Monkey {

// What a control is bound to. Its setter stops echoes, also of NaN.
class Model : public QObject
{
    Q_OBJECT
    Q_PROPERTY(double number READ number WRITE setNumber NOTIFY numberChanged)
    Q_PROPERTY(double silent READ number WRITE setNumber)

public:
    using QObject::QObject;

    double number() const { return m_number; }
    void setNumber(double number);

Q_SIGNALS:
    void numberChanged();

private:
    double m_number = 0;
};

// Passes values on; while isMute is set, it passes none.
class Passing final : public IKELValueConverter
{
public:
    QVariant Convert(QObject *object, const QVariant &value) override;
    QVariant ConvertBack(QObject *object, const QVariant &value) override;

    bool isMute = false;
};

struct Converters
{
    IKELValueConverter *at(int index);

    Passing passing;
    Passing mute;
    KELDefaultValueConverter identity;
};

// Values by their number, odd ones among them.
constexpr int brushCount = 16;
constexpr int textCount = 16;
constexpr int pixmapCount = 6;
QBrush brush(int index);
QString text(int index);
QPixmap pixmap(int index);

} // namespace Monkey

#endif
