// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef KELDATABIND_H
#define KELDATABIND_H

#include "kelgdicontrol_global.h"

#include <QtCore/QObject>
#include <QtCore/QVariant>

class KELDataBindPrivate;

// An interface without a virtual destructor: what may be deleted through it is told below.
QT_WARNING_PUSH
QT_WARNING_DISABLE_GCC("-Wnon-virtual-dtor")
QT_WARNING_DISABLE_CLANG("-Wnon-virtual-dtor")

/*!
 * \brief Converts the values that a KELDataBind carries from one property to the other.
 *
 * Derive from it, override both functions, and keep the converter alive for as long as a binding that uses it
 * may fire: a binding borrows it and never deletes it.
 *
 * The destructor is public but not virtual: <tt>delete</tt> through a pointer to the interface, and so
 * <tt>std::unique_ptr<IKELValueConverter></tt>, runs no destructor of the derived class, whose members leak, and
 * frees a block of the size of the interface. Delete a converter as the type it has, or hold it in a
 * <tt>std::shared_ptr</tt> made of that type, which remembers it; make the class final. Only a converter that adds
 * neither members nor a destructor loses nothing. A compiler that is asked with <tt>-Wnon-virtual-dtor</tt> warns of
 * every derived class.
 *
 * \code
 * class CelsiusToFahrenheit final : public IKELValueConverter
 * {
 * public:
 *     QVariant Convert(QObject *, const QVariant &value) override { return value.toDouble() * 1.8 + 32; }
 *     QVariant ConvertBack(QObject *, const QVariant &value) override { return (value.toDouble() - 32) / 1.8; }
 * };
 * \endcode
 */
// NOLINTNEXTLINE(cppcoreguidelines-virtual-class-destructor): said above
class KELGDI_EXPORT IKELValueConverter
{
public:
    //! The kind of a converter. Every value but DefaultConverterType means a custom converter.
    enum ValueConverterType : int {
        CustomConverterType = 0, //!< Values go through Convert() and ConvertBack().
        DefaultConverterType = 1 //!< Values are copied as they are; neither function is called.
    };

    //! The kind of this converter, set by its constructor. Default CustomConverterType.
    ValueConverterType type;

    //! Returns the value for the destination, made from \a value, which was read from \a object, the source.
    //! Return an invalid QVariant to leave the destination as it is.
    virtual QVariant Convert(QObject *object, const QVariant &value) = 0;

    //! Returns the value for the source, made from \a value, which was read from \a object, the destination.
    //! Return an invalid QVariant to leave the source as it is.
    virtual QVariant ConvertBack(QObject *object, const QVariant &value) = 0;

    //! Returns true when the converter is of kind \a t.
    bool operator==(ValueConverterType t) const;

    //! Destroys the interface alone, as it is not virtual: delete a converter as the type it has.
    ~IKELValueConverter() = default;

protected:
    //! Makes a converter of kind \a converterType.
    explicit IKELValueConverter(ValueConverterType converterType = CustomConverterType) :
        type(converterType)
    { }
    //! Copies the kind.
    IKELValueConverter(const IKELValueConverter &) = default;
    //! Copies the kind.
    IKELValueConverter &operator=(const IKELValueConverter &) = default;
};

/*!
 * \brief The converter that changes nothing. A binding with it is one without a converter.
 */
// NOLINTNEXTLINE(cppcoreguidelines-virtual-class-destructor): its base has none either
class KELGDI_EXPORT KELDefaultValueConverter : public IKELValueConverter
{
public:
    //! Makes a converter of kind DefaultConverterType.
    KELDefaultValueConverter();

    //! Returns an invalid QVariant. No binding calls it.
    QVariant Convert(QObject *object, const QVariant &value) override;

    //! Returns an invalid QVariant. No binding calls it.
    QVariant ConvertBack(QObject *object, const QVariant &value) override;
};

QT_WARNING_POP

/*!
 * \brief Keeps a property of one object, the source, and a property of another, the destination, in step.
 *
 * \image html data-bind.png
 *
 * \code
 * // The check box shows the model's property and changes it.
 * KELDataBind::bind(checkBox, "check", model, "enabled", KELDataBind::TwoWay);
 * \endcode
 *
 * The properties are found by their names in the meta-objects, so any QObject can be bound. The binding
 * listens to their notify signals. Where a property has none, changes on its side go unnoticed.
 *
 * \section bindmodes Modes
 * setBind() connects what the mode asks for and the two properties offer; bindMode() tells what came of it:
 * | asked for      | source notifies | destination notifies | effective      | debug message                        |
 * |----------------|-----------------|----------------------|----------------|--------------------------------------|
 * | Auto           | yes             | yes                  | TwoWay         |                                      |
 * | Auto           | yes             | no                   | OneWay         |                                      |
 * | Auto           | no              | yes                  | OneWayToSource |                                      |
 * | Auto           | no              | no                   | Manual         | waring : could not find any notify   |
 * | Manual         | any             | any                  | Manual         |                                      |
 * | OneWay         | yes             | any                  | OneWay         |                                      |
 * | OneWay         | no              | any                  | Manual         | waring : could not find any notify   |
 * | TwoWay         | yes             | yes                  | TwoWay         |                                      |
 * | TwoWay         | yes             | no                   | OneWay         | waring : could not find src notify   |
 * | TwoWay         | no              | yes                  | OneWayToSource | waring : could not find dst notify   |
 * | TwoWay         | no              | no                   | Manual         | waring : could not find any notify   |
 * | OneWayToSource | any             | yes                  | OneWayToSource |                                      |
 * | OneWayToSource | any             | no                   | Manual         | waring : could not find any notify   |
 * | any other value | any            | any                  | Manual         | waring : could not find any notify   |
 *
 * \section bindvalues Values
 * Values travel as QVariant, by QObject::property() and QObject::setProperty(), with the conversions of
 * these: a value that cannot be converted to the type of the property is not written, an invalid value resets a
 * property with a RESET function and otherwise writes the default of the type. A name that is no declared
 * property is a dynamic property; those cannot be bound, but see setBind(). Writing to a property without a
 * WRITE function does nothing. With a converter of kind IKELValueConverter::CustomConverterType every value
 * goes through it first.
 *
 * Nothing stops the echo of a two-way binding but the properties themselves: one of both setters
 * must not emit its notify signal for a value that it has already. Two that always emit call each
 * other until the stack ends. KELSlideControl::setValue() without a step always emits: its partner
 * must begin with <tt>if (value == m_value) return;</tt>, as check boxes do. Two sliders without a
 * step never come to rest; with a step, in one of them, they do.
 *
 * Guarded setters do not help when what comes back differs each time, as with a converter whose
 * ConvertBack() does not undo Convert(). What holds for radio boxes is in \ref radiobind.
 *
 * \section bindlife Lifetime
 * Source, destination and converter are borrowed. Once the source or the destination is destroyed, the
 * binding does nothing any more. Source, destination and binding may be destroyed at any time, also in a
 * setter, in a getter, in a slot or in a converter that the binding itself is calling; a converter may be
 * destroyed when no binding uses it or as the last thing it does in Convert() or ConvertBack().
 *
 * \section bindexceptions Exceptions
 * No exception may leave the getters, setters, converters, slots and event handlers that run while a binding copies
 * a value or connects: it ends the program at once, by std::terminate(), whether or not somebody further out would
 * have caught it.
 *
 * GUI thread only.
 */
class KELGDI_EXPORT KELDataBind : public QObject
{
    Q_OBJECT

public:
    //! In which directions changes are carried.
    enum BindMode : int {
        Auto = 0, //!< In the directions that the properties allow. Never an effective mode.
        Manual = 1, //!< Not at all; values move when setBind() or update() is called.
        OneWay = 2, //!< From the source to the destination.
        TwoWay = 3, //!< In both directions.
        OneWayToSource = 4 //!< From the destination to the source.
    };

    //! Creates a binding that binds nothing yet, as a child of \a parent.
    explicit KELDataBind(QObject *parent = nullptr);

    //! Ends the binding. Source, destination and converter stay.
    ~KELDataBind() override;

    /*!
     * Binds the property \a srcProperty of \a src and the property \a dstProperty of \a dst, as
     * \a mode says, with \a converter or, when it is null, without. Names are UTF-8.
     *
     * In this order: the arguments are stored. The destination's value is copied to the source, without the
     * converter and in every mode. Names that are not declared are reported and end the call, with the
     * effective mode, the connections and the meta-properties of an earlier call left as they were:
     * <tt>error : could not find src property ' name '</tt> or
     * <tt>error : could not find dst property ' name '</tt>, in both of which the name is that of the source's
     * property. Notify signals are connected as \ref bindmodes says.
     *
     * As the copy comes first, a source without such a property has a dynamic one of that name afterwards.
     * A null name is an empty one, which no property has; a null object has no property.
     *
     * Earlier connections stay: call unbind() first to replace a binding, otherwise each signal is answered
     * twice. A slot that calls setBind() on this binding while it copies replaces what the outer call was
     * about to do.
     */
    void setBind(QObject *src, const char *srcProperty, QObject *dst, const char *dstProperty,
                 BindMode mode, IKELValueConverter *converter = nullptr);

    /*!
     * Creates a binding as a child of \a src, calls setBind() with the arguments and returns it. The
     * binding dies with the source. With a null \a src it has no parent and belongs to the caller. Returns
     * null when a setter destroyed the source meanwhile.
     */
    static KELDataBind *bind(QObject *src, const char *srcProperty, QObject *dst,
                             const char *dstProperty, BindMode mode,
                             IKELValueConverter *converter = nullptr);

    /*!
     * Connects again after unbind(), in the effective mode, and copies the value once: to the destination,
     * or in mode OneWayToSource to the source. The object written to has its signals blocked meanwhile and
     * unblocked afterwards: a block that the application had set with QObject::blockSignals() is gone then.
     *
     * Writes <tt>error : bind is not setted</tt> and does nothing else when the effective mode is Manual or
     * an object is gone. Does not disconnect first: without unbind() every change is carried twice from
     * then on.
     */
    void bind();

    //! Disconnects. The effective mode stays, so that bind() can connect again.
    void unbind();

    //! Copies the destination's value to the source once, through the converter, whatever the mode is, with
    //! the source's signals blocked as in bind(). Does nothing when an object is gone.
    void update();

    //! Returns the effective mode. Default Manual.
    BindMode bindMode() const;

    //! Returns true when the effective mode is Manual: nothing is connected.
    bool hasError() const;

protected:
    //! Carries the value from the source to the destination.
    Q_INVOKABLE void srcValueChanged();
    //! Carries the value from the destination to the source.
    Q_INVOKABLE void dstValueChanged();

private:
    Q_DISABLE_COPY(KELDataBind)

    KELDataBindPrivate *const d;
};

#endif
