// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef KELDATABIND_H
#define KELDATABIND_H

#include "kelgdicontrol_global.h"

#include <QtCore/QObject>
#include <QtCore/QVariant>

class KELDataBindPrivate;

// An interface without a virtual destructor: its reference says what may be deleted through it.
QT_WARNING_PUSH
QT_WARNING_DISABLE_GCC("-Wnon-virtual-dtor")
QT_WARNING_DISABLE_CLANG("-Wnon-virtual-dtor")

/*!
 * \brief Converts the values that a KELDataBind copies between two properties.
 *
 * Derive from it and override both functions:
 * \code
 * class CelsiusToFahrenheit final : public IKELValueConverter
 * {
 * public:
 *     QVariant Convert(QObject *, const QVariant &value) override
 *     {
 *         return value.toDouble() * 1.8 + 32;
 *     }
 *     QVariant ConvertBack(QObject *, const QVariant &value) override
 *     {
 *         return (value.toDouble() - 32) / 1.8;
 *     }
 * };
 * \endcode
 *
 * A binding does not own its converter and never deletes it. Keep the converter alive as long as a
 * binding that uses it may fire.
 *
 * \section convertercompat Compatibility notes
 * The destructor is public but not virtual. <tt>delete</tt> through a pointer to the interface, and
 * therefore <tt>std::unique_ptr<IKELValueConverter></tt>, does not run the destructor of the
 * derived class, so its members leak, and frees the block with the size of the interface. Delete a
 * converter through a pointer to its own type, or hold it in a <tt>std::shared_ptr</tt> constructed
 * from such a pointer, which remembers the type. Make the class final. Only a converter that adds
 * neither members nor a destructor is unaffected. With <tt>-Wnon-virtual-dtor</tt> a compiler warns
 * about every derived class.
 */
// NOLINTNEXTLINE(cppcoreguidelines-virtual-class-destructor): see above
class KELGDI_EXPORT IKELValueConverter
{
public:
    //! The kind of a converter. Every value but DefaultConverterType means a custom converter.
    enum ValueConverterType : int {
        CustomConverterType = 0, //!< Values go through Convert() and ConvertBack().
        DefaultConverterType = 1 //!< Values are copied as they are; neither function is called.
    };

    //! The kind of this converter, set by its constructor. The default is CustomConverterType.
    ValueConverterType type;

    //! Converts \a value, which was read from the source \a object, and returns the value for the
    //! destination. Return an invalid QVariant to leave the destination unchanged.
    virtual QVariant Convert(QObject *object, const QVariant &value) = 0;

    //! Converts \a value, which was read from the destination \a object, and returns the value for
    //! the source. Return an invalid QVariant to leave the source unchanged.
    virtual QVariant ConvertBack(QObject *object, const QVariant &value) = 0;

    //! Returns true if the converter is of kind \a t.
    bool operator==(ValueConverterType t) const;

    //! Destroys only the interface, because it is not virtual: delete a converter through a pointer
    //! to its own type.
    ~IKELValueConverter() = default;

protected:
    //! Constructs a converter of kind \a converterType.
    explicit IKELValueConverter(ValueConverterType converterType = CustomConverterType) :
        type(converterType)
    { }
    //! Copies the kind.
    IKELValueConverter(const IKELValueConverter &) = default;
    //! Copies the kind.
    IKELValueConverter &operator=(const IKELValueConverter &) = default;
};

/*!
 * \brief The identity converter. A binding that uses it acts like one without a converter.
 */
// NOLINTNEXTLINE(cppcoreguidelines-virtual-class-destructor): its base has none either
class KELGDI_EXPORT KELDefaultValueConverter : public IKELValueConverter
{
public:
    //! Constructs a converter of kind DefaultConverterType.
    KELDefaultValueConverter();

    //! Returns an invalid QVariant. No binding calls it.
    QVariant Convert(QObject *object, const QVariant &value) override;

    //! Returns an invalid QVariant. No binding calls it.
    QVariant ConvertBack(QObject *object, const QVariant &value) override;
};

QT_WARNING_POP

/*!
 * \brief Synchronises a property of one object, the source, with a property of another, the
 * destination.
 *
 * \code
 * // The check box shows the model's property and changes it.
 * KELDataBind::bind(checkBox, "check", model, "enabled", KELDataBind::TwoWay);
 * \endcode
 *
 * The properties are looked up by name in the meta-objects, so any QObject can be bound. The
 * binding listens to their notify signals. If a property has none, changes on its side go
 * unnoticed.
 *
 * The binding does not own its source, destination or converter.
 *
 * \section bindmodes Modes
 * setBind() connects what the mode requests and the two properties support. bindMode() returns the
 * result:
 * | requested      | source notifies | destination notifies | effective      | debug message |
 * | -------------- | --------------- | -------------------- | -------------- | ------------- |
 * | Auto           | yes             | yes                  | TwoWay         |               |
 * | Auto           | yes             | no                   | OneWay         |               |
 * | Auto           | no              | yes                  | OneWayToSource |               |
 * | Auto           | no              | no                   | Manual         | no notify     |
 * | Manual         | any             | any                  | Manual         |               |
 * | OneWay         | yes             | any                  | OneWay         |               |
 * | OneWay         | no              | any                  | Manual         | no notify     |
 * | TwoWay         | yes             | yes                  | TwoWay         |               |
 * | TwoWay         | yes             | no                   | OneWay         | no src notify |
 * | TwoWay         | no              | yes                  | OneWayToSource | no dst notify |
 * | TwoWay         | no              | no                   | Manual         | no notify     |
 * | OneWayToSource | any             | yes                  | OneWayToSource |               |
 * | OneWayToSource | any             | no                   | Manual         | no notify     |
 * | any other      | any             | any                  | Manual         | no notify     |
 *
 * The messages are:
 * - no notify: <tt>waring : could not find any notify</tt>
 * - no src notify: <tt>waring : could not find src notify</tt>
 * - no dst notify: <tt>waring : could not find dst notify</tt>
 *
 * \section bindvalues Values
 * Values are copied as QVariants with QObject::property() and QObject::setProperty(), which apply
 * their usual conversions. With a converter of kind IKELValueConverter::CustomConverterType every
 * value passes through it first.
 * - A value that cannot be converted to the type of the property is not written.
 * - An invalid value resets a property with a RESET function and otherwise writes the default of
 *   the type.
 * - Writing to a property without a WRITE function does nothing.
 * - A name that is not a declared property refers to a dynamic property. Dynamic properties cannot
 *   be bound, but see setBind().
 *
 * A two-way binding relies on the properties to stop the echo: at least one of the two setters must
 * not emit its notify signal for an unchanged value. Two setters that always emit call each other
 * until the stack overflows. KELSlideControl::setValue() always emits if there is no step, so the
 * other setter must begin with <tt>if (value == m_value) return;</tt>, as that of a check box does.
 * Two sliders without a step never settle; if one of them has a step, they do.
 *
 * Guarded setters do not help if the value that comes back differs each time, as with a converter
 * whose ConvertBack() does not undo Convert(). For radio boxes see \ref radiobind.
 *
 * \section bindlife Lifetime
 * Once the source or the destination is destroyed, the binding does nothing. The source, the
 * destination and the binding may be destroyed at any time, even in a setter, getter, slot,
 * converter or QObject::connectNotify() that the binding itself is calling. A converter may be
 * destroyed when no binding uses it, or as the last thing it does in Convert() or ConvertBack().
 *
 * \section bindexceptions Exceptions
 * No exception may escape from the getters, setters, converters, slots and event handlers that run
 * while a binding copies a value or connects. An exception that does calls std::terminate() at
 * once, even if an outer function would have caught it.
 *
 * GUI thread only.
 *
 * \section bindcompat Compatibility notes
 * - setBind() copies the destination's value to the source first, without the converter and in
 *   every mode. A source without such a property gets a dynamic one of that name.
 * - setBind() and bind() do not disconnect first: unless you call unbind() first, each signal is
 *   handled twice.
 * - Both error messages for an undeclared name contain the name of the source's property.
 * - bind() and update() leave the signals of the object that they write to unblocked, even if the
 *   application had blocked them.
 * - hasError() is also true for a binding in Manual mode.
 */
class KELGDI_EXPORT KELDataBind : public QObject
{
    Q_OBJECT

public:
    //! The directions in which changes are copied.
    enum BindMode : int {
        Auto = 0, //!< In the directions that the properties allow. Never an effective mode.
        Manual = 1, //!< Not at all; only setBind() and update() copy.
        OneWay = 2, //!< From the source to the destination.
        TwoWay = 3, //!< In both directions.
        OneWayToSource = 4 //!< From the destination to the source.
    };

    //! Creates a binding without a source or destination, as a child of \a parent.
    explicit KELDataBind(QObject *parent = nullptr);

    //! Ends the binding. Does not delete the source, the destination or the converter.
    ~KELDataBind() override;

    /*!
     * Binds the property \a srcProperty of \a src and the property \a dstProperty of \a dst in mode
     * \a mode. A null \a converter means that values are not converted. Names are UTF-8.
     *
     * The call does the following, in this order:
     * 1. It stores the arguments.
     * 2. It copies the destination's value to the source, without the converter and in every mode.
     * 3. If a name is not that of a declared property, it prints a debug message and returns. The
     *    effective mode, the connections and the meta-properties of an earlier call are left
     *    unchanged. The messages are <tt>error : could not find src property ' name '</tt> and
     *    <tt>error : could not find dst property ' name '</tt>; in both the name is that of the
     *    source's property.
     * 4. It connects the notify signals as described in \ref bindmodes.
     *
     * Because the copy comes first, a source without such a property gets a dynamic one of that
     * name. A null name counts as an empty one, and no property has an empty name; a null object
     * has no properties.
     *
     * Earlier connections remain: call unbind() first to replace a binding, otherwise each signal
     * is handled twice. If setBind() is called on this binding by a slot while the value is being
     * copied, or by an object's connectNotify(), the nested call takes effect and the outer one is
     * abandoned. A connection that the outer one has made by then remains, too, but unbind() does
     * not disconnect it.
     */
    void setBind(QObject *src, const char *srcProperty, QObject *dst, const char *dstProperty,
                 BindMode mode, IKELValueConverter *converter = nullptr);

    /*!
     * Creates a binding as a child of \a src, calls setBind() with the arguments and returns it.
     * The binding is destroyed together with the source. If \a src is null, the binding has no
     * parent and the caller owns it. Returns null if the source or the binding is destroyed during
     * the call.
     */
    static KELDataBind *bind(QObject *src, const char *srcProperty, QObject *dst,
                             const char *dstProperty, BindMode mode,
                             IKELValueConverter *converter = nullptr);

    /*!
     * Reconnects after unbind(), in the effective mode, and copies the value once: to the
     * destination or, in OneWayToSource mode, to the source. During the copy the signals of the
     * object written to are blocked; afterwards they are unblocked, even if the application had
     * blocked them with QObject::blockSignals().
     *
     * If the effective mode is Manual or an object no longer exists, prints the debug message
     * <tt>error : bind is not setted</tt> and does nothing else. Does not disconnect first: unless
     * you call unbind() first, every change is copied twice from then on.
     */
    void bind();

    //! Disconnects. Retains the effective mode, so that bind() can reconnect.
    void unbind();

    //! Copies the destination's value to the source once, through the converter, in any mode, with
    //! the source's signals blocked as in bind(). Does nothing if an object no longer exists.
    void update();

    //! Returns the effective mode. The default is Manual.
    BindMode bindMode() const;

    //! Returns true if the effective mode is Manual: nothing is connected.
    bool hasError() const;

protected:
    //! Copies the value from the source to the destination.
    Q_INVOKABLE void srcValueChanged();
    //! Copies the value from the destination to the source.
    Q_INVOKABLE void dstValueChanged();

private:
    Q_DISABLE_COPY(KELDataBind)

    KELDataBindPrivate *const d;
};

#endif
