// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef KELVALUES_H
#define KELVALUES_H

#include "kelgdiparts_global.h"

#include <QtCore/QObject>
#include <QtCore/QString>

/*!
 * \brief Shows the properties of a model in controls and parts, and edits them there.
 *
 * \code
 * KELValues::show(heating, "temperature", label, "text", tr("%1 °C"), 1); // 21.5 °C
 * KELValues::show(battery, "level", bar, "percent");
 * KELValues::edit(heating, "target", range, "value");
 * KELValues::edit(heating, "enabled", checkBox, "check");
 * \endcode
 *
 * A model is any QObject with properties that have notify signals. Unlike a KELDataBind, which
 * begins by copying the value of the control to the model, both functions begin with the value of
 * the model, and the model is never changed by being shown.
 *
 * \section valuesadapter Properties of controls
 * Some values of controls have functions only, or properties of type bool. The KELValues of a
 * control, or of a KELRadioBoxGroup, has them as properties of their real type:
 * | property    | type    | of                  | notices a change on the control itself        |
 * | ----------- | ------- | ------------------- | --------------------------------------------- |
 * | text        | QString | each control        | no                                            |
 * | enabled     | bool    | each control        | yes                                           |
 * | visible     | bool    | each control        | yes                                           |
 * | check       | bool    | each control        | of KELCheckBox, KELRadioBox and derived ones  |
 * | percent     | int     | KELProcessBar       | yes                                           |
 * | selectIndex | int     | KELComboBox         | yes, except by removeItem() and clearItem()   |
 * | currentId   | int     | KELRadioBoxGroup    | yes                                           |
 *
 * Each has a notify signal. It is emitted for a change through the KELValues and, where the table
 * says so, for one on the control itself. Of other changes the application may tell:
 * <tt>Q_EMIT KELValues::of(label)->textChanged();</tt>
 *
 * show() and edit() use these properties if the control has none with that name. A KELDataBind uses
 * them like this:
 * \code
 * KELDataBind::bind(KELValues::of(bar), "percent", model, "level", KELDataBind::TwoWay);
 * \endcode
 * A property that the table does not list for an object reads 0, false or an empty text and cannot
 * be set.
 *
 * The properties \c value of KELProcessBar and \c id of KELRadioBoxGroup are of type bool: use
 * \c percent and \c currentId. Show \c enabled and \c visible, but do not edit them: they also
 * change with the parent item, such as a page that is hidden.
 *
 * \section valueslife Lifetime
 * A link ends when the model or the control is destroyed. Either may be destroyed at any time, as
 * may the KELValues and the link, also in a slot, getter or setter that a link is calling.
 *
 * \section valueswarn Warnings
 * These are printed with qWarning(), with the names of the class and the property:
 * - <tt>KELValues: Foo has no values</tt>: neither a control nor a KELRadioBoxGroup. The result is
 *   null.
 * - <tt>KELValues: no model</tt>, <tt>KELValues: no control</tt>: a null pointer. The result is
 *   null.
 * - <tt>KELValues: Foo has no property "bar"</tt>: also for a dynamic property. The result is null.
 * - <tt>KELValues: property "bar" of Foo cannot be written</tt>: the result is null.
 * - <tt>KELValues: property "bar" of Foo does not notify</tt>: the value is shown, and later
 *   changes of this property go unnoticed.
 *
 * GUI thread only.
 */
class KELGDIPARTS_EXPORT KELValues : public QObject
{
    Q_OBJECT
    //! The caption.
    Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged)
    //! Whether the control is enabled.
    Q_PROPERTY(bool enabled READ isEnabled WRITE setEnabled NOTIFY enabledChanged)
    //! Whether the control is visible.
    Q_PROPERTY(bool visible READ isVisible WRITE setVisible NOTIFY visibleChanged)
    //! Whether the control is checked.
    Q_PROPERTY(bool check READ isCheck WRITE setCheck NOTIFY checkChanged)
    //! The value of a KELProcessBar.
    Q_PROPERTY(int percent READ percent WRITE setPercent NOTIFY percentChanged)
    //! The selected entry of a KELComboBox.
    Q_PROPERTY(int selectIndex READ selectIndex WRITE setSelectIndex NOTIFY selectIndexChanged)
    //! The id of a KELRadioBoxGroup.
    Q_PROPERTY(int currentId READ currentId WRITE setCurrentId NOTIFY currentIdChanged)

public:
    //! Returns the values of \a object, a control or a KELRadioBoxGroup: always the same object,
    //! which the first call creates. \a object owns it. Returns null for null, and for another
    //! object with a warning.
    static KELValues *of(QObject *object);

    /*!
     * Shows the property \a property of \a model in the property \a controlProperty of \a control,
     * now and after each notify signal. Names are UTF-8.
     *
     * If \a controlProperty is of type QString, it becomes \a format with each <tt>%1</tt> replaced
     * by the value; with an empty \a format, it becomes the value alone. Numbers of type int, uint,
     * qlonglong, double and float are written as in the default QLocale; double and float with
     * \a decimals, at most 15, or with as many as they need if that is negative. An invalid value
     * and a number that is NaN or infinite become a dash (U+2013). Other values are converted as by
     * QVariant::toString().
     *
     * A property of another type gets the value itself, as with QMetaProperty::write(); \a format
     * and \a decimals are not used. Nothing is written if the control already has the value.
     *
     * Give a property of a control one link only: a second one writes over what the first one has
     * written.
     *
     * Returns the link, which the control owns. Delete it to end it. Returns null after those of
     * the \ref valueswarn that say so, and if the link is destroyed during the call.
     */
    static QObject *show(QObject *model, const char *property, QObject *control,
                         const char *controlProperty = "text", const QString &format = QString(),
                         int decimals = -1);

    /*!
     * Shows the property \a property of \a model in \a controlProperty of \a control as show() does
     * without a format, and writes each change in the control to the model. Then the control shows
     * what the model has made of it: with a property of type int, a KELRange moves in whole
     * numbers, even without a step.
     *
     * A control that limits or rounds the value of the model shows what it can, and the model keeps
     * its value until the control is used. If slots of the control change the model, that is shown,
     * too, up to eight times in a row. No setter, of the model or of the control, has to ignore a
     * value that it already has: KELSlideControl settles, too.
     *
     * Values are converted as by QMetaProperty::write(). Returns the same as show().
     */
    static QObject *edit(QObject *model, const char *property, QObject *control,
                         const char *controlProperty);

    //! Returns the caption; an empty text for a KELRadioBoxGroup.
    QString text() const;
    //! Sets the caption to \a text. Emits textChanged() if that changes it.
    void setText(const QString &text);
    //! Returns whether the control is enabled, together with its parent items.
    bool isEnabled() const;
    //! Enables or disables the control. See QGraphicsItem::setEnabled().
    void setEnabled(bool enabled);
    //! Returns whether the control is visible, together with its parent items.
    bool isVisible() const;
    //! Shows or hides the control. See QGraphicsItem::setVisible().
    void setVisible(bool visible);
    //! Returns whether the control is checked.
    bool isCheck() const;
    //! Checks or unchecks the control. Emits checkChanged() if that changes.
    void setCheck(bool check);
    //! Returns the value of the KELProcessBar; 0 for another object.
    int percent() const;
    //! Sets the value of the KELProcessBar.
    void setPercent(int percent);
    //! Returns the index of the selected entry of the KELComboBox, or -1 if none is selected; 0 for
    //! another object.
    int selectIndex() const;
    //! Selects an entry of the KELComboBox. An index without an entry is ignored.
    void setSelectIndex(int index);
    //! Returns the id of the KELRadioBoxGroup; 0 for another object.
    int currentId() const;
    //! Selects the box with the id \a id in the KELRadioBoxGroup.
    void setCurrentId(int id);

Q_SIGNALS:
    //! The caption was changed with setText().
    void textChanged();
    //! The control was enabled or disabled.
    void enabledChanged();
    //! The control was shown or hidden.
    void visibleChanged();
    //! The control was checked or unchecked.
    void checkChanged();
    //! The value of the KELProcessBar changed.
    void percentChanged();
    //! Another entry of the KELComboBox was selected.
    void selectIndexChanged();
    //! Another box of the KELRadioBoxGroup was selected.
    void currentIdChanged();

private:
    Q_DISABLE_COPY(KELValues)
    explicit KELValues(QObject *object);
};

#endif
