// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef GALLERYUSER_H
#define GALLERYUSER_H

#include "eventlog.h"
#include "iconset.h"
#include "keltest.h"
#include "rows.h"

#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>

#include <memory>

/*
 * A user of the gallery, which runs on an X server of its own.
 *
 * What the gallery logs is read as one line, "Set 50: press, release, clicked; Bar: valueChanged
 * 50". Positions are those of the screen, which the gallery fills.
 */
class GalleryUser
{
public:
    GalleryUser();
    ~GalleryUser();

    // Starts the gallery with a page.
    bool start(const QString &page, const QString &log = u"-"_s);
    // Goes on with the gallery that the test before has left on that page, or starts one.
    bool open(const QString &page);
    // Ends the gallery with the keyboard. Returns what went wrong, or was logged and not taken.
    QString quit();

    // On the page that it was started with, or on another one.
    QRect geometryOf(const QString &name, const QString &page = QString()) const;

    void moveTo(const QPoint &pos) { xdotool(goTo(pos)); }
    // The middle of a control. No tap is the second one of a double click: in the same place it is
    // 8 px lower.
    void tap(const QString &name) { tapAt(geometryOf(name).center()); }
    void tapAll(std::initializer_list<QString> names);
    // Of the list of pages.
    void tapRowOf(const QString &page);
    void tapAt(const QPoint &pos) { xdotool(goToPress(pos) + " click 1"); }
    void tapNothing() { tapAt(QPoint(1275, 1595)); } // below the page
    void press(const QPoint &pos) { xdotool(goToPress(pos) + " mousedown 1"); }
    void release() { xdotool("mouseup 1"); }
    // Taps, with some time between them.
    void tapRepeatedly(const QPoint &pos, int times, int delayMs);
    void type(const QString &keys) { xdotool("key " + keys); }

    // Waits for as many lines as expected names, and takes all that are there: those about the
    // pointer without hovering, or the others only.
    QString gestures(const QString &expected) { return take(expected, isGesture); }
    QString changes(const QString &expected) { return take(expected, isChange); }
    // The changes so far, each with its control.
    QStringList takeChanges();
    // The lines so far, as they were logged.
    QStringList takeLines();
    // Waits until this many lines that were not taken contain the text.
    bool waitFor(const QString &text, int times = 1, int ms = patienceMs);
    // When the last line with the text was logged, in seconds.
    double timeOf(const QString &text) const;

    // The titles of the windows on the screen that contain name, once they are this many.
    QStringList windows(const QString &name, int count) const;
    // Where the window called name is, in the words of xdotool.
    QString placeOf(const QString &name) const;
    // A log that start() may write to.
    QString logPath() const { return m_directory.filePath(u"gallery.log"_s); }

private:
    Q_DISABLE_COPY(GalleryUser)

    static constexpr int patienceMs = 20000;
    using Filter = bool (*)(const QString &);
    static bool isGesture(const QString &line);
    static bool isChange(const QString &line);
    static QString goTo(const QPoint &pos);
    QString goToPress(const QPoint &pos);

    QString take(const QString &expected, Filter isWanted);
    bool read(const QDeadlineTimer &patience);
    void kill();
    void xdotool(const QString &commands);
    QString ask(const QStringList &arguments) const;

    QTemporaryDir m_directory;
    QProcessEnvironment m_display;
    QProcess m_server;
    QProcess m_xdotool;
    std::unique_ptr<QProcess> m_gallery;
    QString m_page;
    QStringList m_lines; // since the start
    QStringList m_new; // not taken
    Filter m_filter = isChange;
    bool m_isAsExpected = false;
    QPoint m_lastPress;
    mutable EventLog m_noLog{nullptr};
    IconSet m_icons;
    mutable QHash<QString, QRect> m_geometries;
};

#define COMPARE_GESTURES(user, expected) QCOMPARE((user).gestures(expected), QString(expected))
#define COMPARE_CHANGES(user, expected) QCOMPARE((user).changes(expected), QString(expected))
// What a tap on a control brings.
#define COMPARE_TAP_GESTURES(user, name, expected) \
  do {                                             \
    (user).tap(name);                              \
    COMPARE_GESTURES(user, expected);              \
  } while (false)
#define COMPARE_TAP_CHANGES(user, name, expected) \
  do {                                            \
    (user).tap(name);                             \
    COMPARE_CHANGES(user, expected);              \
  } while (false)

#endif
