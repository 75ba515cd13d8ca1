// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "commandline.h"

#include "iconset.h"
#include "pageregistry.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QRegularExpression>

#include <cstdio>
#include <vector>

namespace {

constexpr int minSidePx = 100;
constexpr int maxSidePx = 8192;
constexpr int badInputCode = 2;

void addOwnOptions(QCommandLineParser *parser)
{
    parser->addOptions({
        {QStringLiteral("list"), QStringLiteral("Print the names of the pages and exit.")},
        {QStringLiteral("page"),
         QStringLiteral("Start with page <name>; default: the list of all pages."),
         QStringLiteral("name")},
        {QStringLiteral("size"),
         QStringLiteral("Size of the window, from 100x100 to 8192x8192; default: 800x480."),
         QStringLiteral("WxH")},
        {QStringLiteral("look"),
         QStringLiteral("One of light, dark and high-contrast; default: light."),
         QStringLiteral("look")},
        {QStringLiteral("language"), QStringLiteral("One of en, de and ar; default: en."),
         QStringLiteral("language")},
        {QStringLiteral("icon-font"),
         QStringLiteral("Use the icon font in <path>; default: Font Awesome, if installed."),
         QStringLiteral("path")},
        {QStringLiteral("log"),
         QStringLiteral("Log signals to <file> as they are emitted; - is standard output."),
         QStringLiteral("file")},
        {QStringLiteral("screenshot"), QStringLiteral("Save the page as PNG in <file> and exit."),
         QStringLiteral("file")},
        {QStringLiteral("screenshot-all"),
         QStringLiteral("Save every page as <dir>/<name>.png and exit."), QStringLiteral("dir")},
        {QStringLiteral("anatomy"),
         QStringLiteral("Save the pictures of the styling guide in <dir> and exit."),
         QStringLiteral("dir")},
        {QStringLiteral("benchmark"),
         QStringLiteral("Measure the finished screens, print the figures and exit.")},
        {QStringLiteral("csv"), QStringLiteral("Write the figures of --benchmark to <file>, too."),
         QStringLiteral("file")},
        {QStringLiteral("geometry-of"),
         QStringLiteral(
             "Print the geometry of control <name> in the window, as X,Y WxH, and exit."),
         QStringLiteral("name")},
    });
}

// The options that Qt itself takes: known here, so that they are let through.
void addQtOptions(QCommandLineParser *parser)
{
    const auto add = [parser](const char *name, const QString &value) {
        QCommandLineOption option(QLatin1String(name), QString(), value);
        option.setFlags(QCommandLineOption::HiddenFromHelp);
        parser->addOption(option);
    };
    for (const char *name :
         {"platform", "platformpluginpath", "platformtheme", "plugin", "qwindowgeometry",
          "qwindowicon", "qwindowtitle", "geometry", "icon", "title", "display", "style",
          "stylesheet", "session", "name", "fontengine", "qmljsdebugger"}) {
        add(name, QStringLiteral("value"));
    }
    for (const char *name : {"reverse", "widgetcount", "nograb", "dograb", "sync", "testability"})
        add(name, QString());
}

// "Unknown option 'x'." as the second half of our own line.
QString asClause(QString sentence)
{
    while (sentence.endsWith(QLatin1Char('.')))
        sentence.chop(1);
    if (!sentence.isEmpty())
        sentence[0] = sentence[0].toLower();
    return sentence;
}

QSize parsedSize(const QString &text)
{
    static const QRegularExpression form(QStringLiteral("\\A([0-9]{1,5})x([0-9]{1,5})\\z"));
    const QRegularExpressionMatch match = form.match(text);
    const QSize size(match.captured(1).toInt(), match.captured(2).toInt());
    const auto isAllowed = [](int side) { return side >= minSidePx && side <= maxSidePx; };
    return match.hasMatch() && isAllowed(size.width()) && isAllowed(size.height()) ? size : QSize();
}

bool canCreateFile(const QString &path)
{
    const QFileInfo file(path);
    if (path.isEmpty() || file.isDir())
        return false;
    if (file.exists())
        return file.isWritable();
    const QFileInfo directory(file.absolutePath());
    return directory.isDir() && directory.isWritable();
}

bool canFillDirectory(const QString &path)
{
    const QFileInfo directory(path);
    return !path.isEmpty() && QDir().mkpath(path) && directory.isDir() && directory.isWritable();
}

CommandLine answered(int exitCode)
{
    CommandLine line;
    line.action = CommandLine::Action::Answered;
    line.exitCode = exitCode;
    return line;
}

int printOnStdout(const QString &text)
{
    const QByteArray bytes = text.toLocal8Bit();
    const bool written = std::fwrite(bytes.constData(), 1, size_t(bytes.size()), stdout)
            == size_t(bytes.size())
        && std::fflush(stdout) == 0;
    return written ? 0 : 1;
}

QString pageList()
{
    QString text;
    for (const PageEntry &entry : galleryPages())
        text += QLatin1String(entry.name) + QLatin1Char('\n');
    return text;
}

template <typename Value>
struct Choice
{
    const char *name;
    Value value;
};

constexpr Choice<KELTheme::Scheme> looks[] = {{"light", KELTheme::Light},
                                              {"dark", KELTheme::Dark},
                                              {"high-contrast", KELTheme::HighContrast}};
constexpr Choice<Window::Language> languages[] = {
    {"en", Window::English}, {"de", Window::German}, {"ar", Window::Arabic}};

// Takes over what was chosen. Returns what is wrong, or nothing.
template <typename Value, size_t Count>
QString readChoice(const QCommandLineParser &parser, const QString &option,
                   const Choice<Value> (&choices)[Count], Value *value)
{
    if (!parser.isSet(option))
        return QString();
    const QString text = parser.value(option);
    for (const Choice<Value> &choice : choices) {
        if (text == QLatin1String(choice.name)) {
            *value = choice.value;
            return QString();
        }
    }
    return QStringLiteral("unknown %1 '%2' (see --help)").arg(option, text);
}

// Takes over what concerns the pages and their look. Returns what is wrong, or nothing.
QString readView(const QCommandLineParser &parser, CommandLine *line)
{
    if (parser.isSet(QStringLiteral("page"))) {
        const QString name = parser.value(QStringLiteral("page"));
        line->page = galleryPageIndex(name);
        if (line->page < 0)
            return QStringLiteral("unknown page '%1' (see --list)").arg(name);
    }
    if (parser.isSet(QStringLiteral("size"))) {
        const QString text = parser.value(QStringLiteral("size"));
        line->size = parsedSize(text);
        if (line->size.isNull() || line->size.isEmpty())
            return QStringLiteral("bad size '%1', expected 100x100 to 8192x8192").arg(text);
    }
    QString problem = readChoice(parser, QStringLiteral("look"), looks, &line->look);
    if (problem.isEmpty())
        problem = readChoice(parser, QStringLiteral("language"), languages, &line->language);
    if (!problem.isEmpty())
        return problem;
    if (parser.isSet(QStringLiteral("icon-font"))) {
        line->iconFont = parser.value(QStringLiteral("icon-font"));
        problem = IconSet::problemWith(line->iconFont);
        if (!problem.isEmpty())
            return problem;
    }
    line->isPlatformGiven = parser.isSet(QStringLiteral("platform"));
    return QString();
}

// Takes over what is to be done, and where the results go. Returns what is wrong, or nothing.
QString readAction(const QCommandLineParser &parser, CommandLine *line)
{
    const struct
    {
        QString option;
        CommandLine::Action action;
    } actions[] = {{QStringLiteral("screenshot"), CommandLine::Action::Screenshot},
                   {QStringLiteral("screenshot-all"), CommandLine::Action::ScreenshotAll},
                   {QStringLiteral("anatomy"), CommandLine::Action::Anatomy},
                   {QStringLiteral("geometry-of"), CommandLine::Action::GeometryOf},
                   {QStringLiteral("benchmark"), CommandLine::Action::Benchmark}};
    QString chosen;
    for (const auto &candidate : actions) {
        if (!parser.isSet(candidate.option))
            continue;
        if (!chosen.isEmpty())
            return QStringLiteral("--%1 and --%2 exclude each other").arg(chosen, candidate.option);
        chosen = candidate.option;
        line->action = candidate.action;
        line->target = parser.value(candidate.option);
    }
    if (line->action == CommandLine::Action::Screenshot && !canCreateFile(line->target))
        return QStringLiteral("cannot write '%1'").arg(line->target);
    const bool needsDirectory = line->action == CommandLine::Action::ScreenshotAll
        || line->action == CommandLine::Action::Anatomy;
    if (needsDirectory && !canFillDirectory(line->target))
        return QStringLiteral("cannot write into directory '%1'").arg(line->target);
    if (parser.isSet(QStringLiteral("csv"))) {
        if (line->action != CommandLine::Action::Benchmark)
            return QStringLiteral("--csv needs --benchmark");
        line->csv = parser.value(QStringLiteral("csv"));
        if (!canCreateFile(line->csv))
            return QStringLiteral("cannot write '%1'").arg(line->csv);
    }
    if (parser.isSet(QStringLiteral("log"))) {
        line->log = parser.value(QStringLiteral("log"));
        if (line->log != QLatin1String("-") && !canCreateFile(line->log))
            return QStringLiteral("cannot write '%1'").arg(line->log);
    }
    return QString();
}

} // namespace

int complain(const QString &what)
{
    QString line = what;
    line.replace(QLatin1Char('\n'), QLatin1Char(' '));
    std::fprintf(stderr, "kelgdi-gallery: %s\n", line.toLocal8Bit().constData());
    return badInputCode;
}

CommandLine parseCommandLine(int argc, char *argv[])
{
    std::vector<char *> arguments(argv, argv + argc);
    arguments.push_back(nullptr);
    int count = argc;
    QCoreApplication scope(count, arguments.data());
    QCoreApplication::setApplicationVersion(QStringLiteral(GALLERY_VERSION));

    QCommandLineParser parser;
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    parser.setApplicationDescription(QStringLiteral("Shows the controls of KELGdiControl."));
    const QCommandLineOption help = parser.addHelpOption();
    const QCommandLineOption version = parser.addVersionOption();
    addOwnOptions(&parser);
    addQtOptions(&parser);

    if (!parser.parse(QCoreApplication::arguments()))
        return answered(complain(asClause(parser.errorText())));
    if (!parser.positionalArguments().isEmpty()) {
        return answered(complain(QStringLiteral("unexpected argument '%1'")
                                     .arg(parser.positionalArguments().constFirst())));
    }
    if (parser.isSet(help))
        return answered(printOnStdout(parser.helpText()));
    if (parser.isSet(version))
        return answered(printOnStdout(QStringLiteral("kelgdi-gallery " GALLERY_VERSION "\n")));
    if (parser.isSet(QStringLiteral("list")))
        return answered(printOnStdout(pageList()));

    CommandLine line;
    QString problem = readView(parser, &line);
    if (problem.isEmpty())
        problem = readAction(parser, &line);
    return problem.isEmpty() ? line : answered(complain(problem));
}
