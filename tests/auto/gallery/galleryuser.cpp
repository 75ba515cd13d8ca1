// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "galleryuser.h"

#include "galleryprocess.h"
#include "homepage.h"
#include "pageregistry.h"
#include "window.h"

#include <KELList>
#include <QtCore/QDeadlineTimer>

namespace {

constexpr int pollMs = 10;
constexpr QSize screen(1280, 1600); // so large that no page has to be scrolled
constexpr int nearPx = 6; // as far as Qt takes two taps for a double click

const QString title = u"KELGdiControl Gallery"_s;

// "Press me: mousePress (168, 316)" without its position.
QString withoutPosition(QString line)
{
    static const QRegularExpression position(u" \\([-0-9, ]+\\)\\z"_s);
    return line.remove(position);
}

// Lines as one: each control once for what it says in a row.
QString described(const QStringList &lines)
{
    QString text;
    QString last;
    for (const QString &line : lines) {
        const QString control = line.section(u": "_s, 0, 0);
        QString entry = line.section(u": "_s, 1);
        if (entry.startsWith(u"mouse"_s))
            entry = entry.at(5).toLower() + entry.mid(6);
        if (control == last)
            text += u", "_s + entry;
        else
            text += (text.isEmpty() ? QString() : u"; "_s) + control + u": "_s + entry;
        last = control;
    }
    return text;
}

int entriesIn(const QString &description)
{
    return description.isEmpty() ? 0 : 1 + description.count(u", "_s) + description.count(u"; "_s);
}

} // namespace

GalleryUser::GalleryUser()
{
    m_server.start(u"Xvfb"_s,
                   {u"-displayfd"_s, u"1"_s, u"-screen"_s, u"0"_s, u"1280x1600x24"_s,
                    u"-nolisten"_s, u"tcp"_s, u"-noreset"_s});
    const QDeadlineTimer patience(patienceMs);
    while (!m_server.canReadLine() && m_server.waitForReadyRead(int(patience.remainingTime()))) { }
    const QString display = QString::fromLatin1(m_server.readLine().trimmed());
    if (display.isEmpty())
        qFatal("Xvfb has not started");
    m_display = Gallery::environment(m_directory.path());
    m_display.insert(u"DISPLAY"_s, ':' + display);
    m_display.insert(u"QT_QPA_PLATFORM"_s, u"xcb"_s);
    // Neither is needed here, and both keep memory to the end.
    m_display.insert(u"QT_XCB_GL_INTEGRATION"_s, u"none"_s);
    m_display.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, u"disabled:"_s);
    m_xdotool.setProcessEnvironment(m_display);
    m_icons.install(IconSet::defaultPath());
}

GalleryUser::~GalleryUser()
{
    kill();
    m_server.terminate();
    m_server.waitForFinished(patienceMs);
}

bool GalleryUser::start(const QString &page, const QString &log)
{
    const QString problem = quit();
    m_page = page;
    m_lines.clear();
    m_new.clear();
    m_filter = isChange;
    m_isAsExpected = true;
    m_lastPress = QPoint();
    m_gallery = std::make_unique<QProcess>();
    m_gallery->setProcessEnvironment(m_display);
    m_gallery->start(Gallery::program(),
                     {u"--page"_s, page, u"--log"_s, log, u"--size"_s, u"1280x1600"_s});
    const bool isShown = m_gallery->waitForStarted(patienceMs) && !windows(title, 1).isEmpty();
    if (!problem.isEmpty())
        qWarning("the gallery before: %s", qPrintable(problem));
    return isShown;
}

bool GalleryUser::open(const QString &page)
{
    return (m_gallery && m_page == page && m_isAsExpected) || start(page);
}

QString GalleryUser::quit()
{
    // What follows a failure says nothing more.
    if (!m_gallery || !m_isAsExpected) {
        kill();
        return QString();
    }
    type(u"ctrl+q"_s);
    const QDeadlineTimer patience(patienceMs);
    while (read(patience)) { }
    m_gallery->waitForFinished(int(patience.remainingTime()));
    QString problem = QString::fromUtf8(m_gallery->readAllStandardError());
    if (m_gallery->state() != QProcess::NotRunning)
        problem += u"has not ended"_s;
    else if (m_gallery->exitStatus() != QProcess::NormalExit || m_gallery->exitCode() != 0)
        problem += u"exit code %1"_s.arg(m_gallery->exitCode());
    kill();
    return problem + take(QString(), m_filter);
}

QRect GalleryUser::geometryOf(const QString &name, const QString &page) const
{
    const QString shown = page.isEmpty() ? m_page : page;
    QRect &rect = m_geometries[shown + '/' + name];
    if (rect.isNull()) {
        // As the gallery answers --geometry-of, without the time that its start takes.
        Window window(screen, &m_noLog, &m_icons);
        window.showPage(galleryPageIndex(shown));
        rect = window.geometryOf(name);
        if (rect.isNull())
            qWarning("no control '%s' on page '%s'", qPrintable(name), qPrintable(shown));
    }
    return rect;
}

void GalleryUser::tapRowOf(const QString &page)
{
    const Window window(screen, &m_noLog, &m_icons);
    const QList<QGraphicsItem *> items = window.scene()->items();
    for (QGraphicsItem *item : items) {
        if (const auto *list = dynamic_cast<KELList *>(item)) {
            const int row = galleryPageIndex(page) + HomePage::rowsAbovePages();
            tapAt(window.mapFromScene(list->mapToScene(list->rowRect(row).center())));
        }
    }
}

void GalleryUser::tapAll(std::initializer_list<QString> names)
{
    for (const QString &name : names)
        tap(name);
}

void GalleryUser::tapRepeatedly(const QPoint &pos, int times, int delayMs)
{
    xdotool(goToPress(pos) + u" click --repeat %1 --delay %2 1"_s.arg(times).arg(delayMs));
}

QStringList GalleryUser::takeChanges()
{
    QStringList changes;
    const QStringList lines = takeLines();
    for (const QString &line : lines) {
        if (isChange(line))
            changes.append(line.section(' ', 1));
    }
    return changes;
}

QStringList GalleryUser::takeLines()
{
    while (read(QDeadlineTimer(0))) { }
    return std::exchange(m_new, QStringList());
}

bool GalleryUser::waitFor(const QString &text, int times, int ms)
{
    const QDeadlineTimer patience(ms);
    do {
        m_isAsExpected = m_new.filter(text).size() >= times;
    } while (!m_isAsExpected && read(patience));
    return m_isAsExpected;
}

double GalleryUser::timeOf(const QString &text) const
{
    const QStringList found = m_lines.filter(text);
    return found.isEmpty() ? -1 : found.last().section(' ', 0, 0).toDouble();
}

QStringList GalleryUser::windows(const QString &name, int count) const
{
    const QDeadlineTimer patience(patienceMs);
    for (;;) {
        QStringList found = ask({u"search"_s, u"--onlyvisible"_s, u"--name"_s, name,
                                 u"getwindowname"_s, u"%@"_s})
                                .split('\n', Qt::SkipEmptyParts);
        if (found.size() == count || patience.hasExpired())
            return found;
        QThread::msleep(pollMs);
    }
}

QString GalleryUser::placeOf(const QString &name) const
{
    return ask(
        {u"search"_s, u"--onlyvisible"_s, u"--name"_s, name, u"getwindowgeometry"_s, u"--shell"_s});
}

bool GalleryUser::isGesture(const QString &line)
{
    return !line.endsWith(u"mouseEnter"_s) && !line.endsWith(u"mouseLeave"_s);
}

bool GalleryUser::isChange(const QString &line)
{
    return !line.contains(u": mouse"_s);
}

QString GalleryUser::goTo(const QPoint &pos)
{
    return u"mousemove %1 %2"_s.arg(pos.x()).arg(pos.y());
}

QString GalleryUser::goToPress(const QPoint &pos)
{
    const QPoint distance = pos - m_lastPress;
    const bool isNear = qAbs(distance.x()) < nearPx && qAbs(distance.y()) < nearPx;
    m_lastPress = isNear ? pos + QPoint(0, nearPx + 2) : pos;
    return goTo(m_lastPress);
}

QString GalleryUser::take(const QString &expected, Filter isWanted)
{
    m_filter = isWanted;
    while (read(QDeadlineTimer(0))) { }
    const QDeadlineTimer patience(patienceMs);
    QStringList found;
    do {
        found.clear();
        for (const QString &line : qAsConst(m_new)) {
            if (isWanted(line))
                found.append(withoutPosition(line.section(' ', 1)));
        }
    } while (found.size() < entriesIn(expected) && read(patience));
    m_new.clear();
    const QString description = described(found);
    m_isAsExpected = description == expected;
    return description;
}

// Returns false when nothing more comes.
bool GalleryUser::read(const QDeadlineTimer &patience)
{
    if (!m_gallery
        || (!m_gallery->canReadLine()
            && !m_gallery->waitForReadyRead(int(patience.remainingTime()))))
        return false;
    while (m_gallery->canReadLine()) {
        m_lines.append(QString::fromUtf8(m_gallery->readLine()).trimmed());
        m_new.append(m_lines.last());
    }
    return true;
}

void GalleryUser::kill()
{
    // Lest the next gallery gets what this one was meant to get.
    m_xdotool.closeWriteChannel();
    m_xdotool.waitForFinished(patienceMs);
    if (m_gallery && m_gallery->state() != QProcess::NotRunning) {
        m_gallery->kill();
        m_gallery->waitForFinished(patienceMs);
    }
    m_gallery.reset();
}

void GalleryUser::xdotool(const QString &commands)
{
    // One for all commands: it carries out what it reads.
    if (m_xdotool.state() == QProcess::NotRunning)
        m_xdotool.start(u"xdotool"_s, {u"-"_s});
    m_xdotool.write(commands.toLatin1() + '\n');
    m_xdotool.waitForBytesWritten(patienceMs);
}

QString GalleryUser::ask(const QStringList &arguments) const
{
    QProcess process;
    process.setProcessEnvironment(m_display);
    process.start(u"xdotool"_s, arguments);
    process.waitForFinished(patienceMs);
    return QString::fromUtf8(process.readAllStandardOutput());
}
