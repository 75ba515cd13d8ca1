// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef KELTHEME_H
#define KELTHEME_H

#include "kelgdiparts_global.h"

#include <QtCore/QObject>
#include <QtGui/QColor>

QT_BEGIN_NAMESPACE
class QGraphicsObject;
class QGraphicsScene;
QT_END_NAMESPACE

class KELThemePrivate;

/*!
 * \brief Dresses controls and parts: light, dark, high contrast, or as a file says.
 *
 * \code
 * KELTheme theme;
 * theme.applyTo(screen.scene());
 * theme.setScheme(KELTheme::Dark);
 * \endcode
 *
 * applyTo() dresses a tree of items at once, and what is added to it later: the pages that a
 * KELScreen pushes, and new child items of controls, parts and other QGraphicsObjects, these in the
 * next iteration of the event loop, as parts that are added to the scene itself, such as a
 * KELPinDialog. A control that is added to the scene itself later needs an applyTo() of its own. A
 * change of the theme dresses all of them anew.
 *
 * \section themehand What is set by hand wins
 * A theme writes a field of a style record only while it has the value of a new object, or the one
 * that the theme has written. So what the application sets stays, whether it is set before or
 * after. The background brush of the scene is always written. Of a KELPushButton the theme also
 * sets the functions for its pressed, checked and disabled look; to keep those of the application,
 * give the button a dynamic property \c ownStates that is true.
 *
 * \section themelook What it writes
 * | class                | fields                                                            |
 * | -------------------- | ----------------------------------------------------------------- |
 * | KELRoundRectControl  | ground Surface, caption Text, outline Line 1 px, radius 12        |
 * | KELLabel             | caption Text                                                      |
 * | KELPushButton        | ground Raised, caption Text, outline Line 1 px, radius 12; pressed: the ground 8 % towards Text; checked: Accent and OnAccent; disabled: Disabled, no outline |
 * | KELCheckBox          | track Track, outline Muted, knob Accent, darkened until both tracks show it |
 * | KELRadioBox          | ground Surface, outline Muted, dot Accent                         |
 * | KELProcessBar        | ground Track, number Text, fill Accent, mixed with Surface until the number shows |
 * | KELSlideControl      | groove Track, knob Accent, outline Surface                        |
 * | KELLineItem          | line Line                                                         |
 * | KELComboBox          | its button: dark in all schemes, because its text is always light |
 * | KELNavigationTable   | ground Surface, title bar Raised and Text                         |
 * | KELNavigationTableItem | tab of the page that is shown: Raised, or if that is Background, Accent, mixed with Surface until the text shows; glyph and caption of a tab: Text |
 * | parts                | all brushes of KELPartStyle                                       |
 *
 * Text has a contrast of at least 4.5 on its ground in every state, disabled text one of at
 * least 3.
 *
 * \section themefile Files
 * \code{.json}
 * {
 *     "base": "dark",
 *     "roles": { "accent": "#FF8800", "onAccent": "#000000" },
 *     "KELPushButton": { "xRadius": "4", "yRadius": "4" }
 * }
 * \endcode
 * \c base is "light", "dark" or "highContrast"; without it, light. \c roles changes colours by the
 * names of Role with a small first letter. All other names are those of classes of controls, or
 * \c KELPart for all parts, with the fields and texts of KELStyleFields. Numbers, and true and
 * false, need no quotes. A class stands for the classes that derive from it, too; what other
 * classes say wins over KELRoundRectControl. The contrast is then the file's own matter.
 *
 * A file that was loaded is watched, and loaded again 100 ms after it has changed. If it has an
 * error, the look stays as it is, and failed() tells the line.
 *
 * Destroying a theme leaves everything as it looks. GUI thread only.
 */
class KELGDIPARTS_EXPORT KELTheme : public QObject
{
    Q_OBJECT

public:
    //! The looks that need no file.
    enum Scheme : int {
        Light, //!< Dark text on light grounds, the default.
        Dark, //!< Light text on dark grounds.
        HighContrast //!< White and yellow on black.
    };

    //! The colours of a look.
    enum Role : int {
        Background, //!< The ground of the screen.
        Surface, //!< The ground of cards and rows.
        Raised, //!< The ground of buttons.
        Line, //!< Outlines and separators.
        Text, //!< Text and glyphs.
        Muted, //!< Secondary text.
        Accent, //!< What is on, checked or marked.
        OnAccent, //!< Text on Accent.
        Good, //!< A good value, for the application.
        Warning, //!< A value to look at, for the application.
        Bad, //!< A bad value, for the application.
        OnBad, //!< Text on Bad, for the application.
        Track, //!< What is unfilled or off.
        Disabled //!< Text of what is disabled; computed from Text and Surface, not in files.
    };

    //! Creates a light theme that dresses nothing yet, as a child of \a parent.
    explicit KELTheme(QObject *parent = nullptr);
    //! Stops dressing; see above.
    ~KELTheme() override;

    //! Returns the scheme that was set, or the base of the file that was loaded.
    Scheme scheme() const;
    //! Returns the colour of \a role.
    QColor color(Role role) const;

    //! Dresses all items of \a scene, and its background. Does nothing if it is null.
    void applyTo(QGraphicsScene *scene);
    //! Dresses \a root and all items below it. Does nothing if it is null.
    void applyTo(QGraphicsObject *root);

    //! Dresses everything as the file \a path says, and watches it. If it cannot be read or has an
    //! error, emits failed(), keeps the look and returns false; the file is watched all the same.
    bool load(const QString &path);

public Q_SLOTS:
    //! Dresses everything in \a scheme, and no longer watches a file.
    void setScheme(KELTheme::Scheme scheme);

Q_SIGNALS:
    //! Everything is dressed in another look.
    void changed();
    //! The file cannot be used. \a text says in English what is wrong in \a line, counted from 1; 0
    //! if the file cannot be read.
    void failed(int line, const QString &text);

private:
    Q_DISABLE_COPY(KELTheme)
    friend class KELThemePrivate;
    void lookAgain();
    void dressAgain();

    KELThemePrivate *const d;
};

#endif
