// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "keltheme.h"

#include "kelpart.h"
#include "kelscreen.h"
#include "kelstylerecord_p.h"
#include "kelthemes_p.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QFileSystemWatcher>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtCore/QVariant>
#include <QtWidgets/QGraphicsScene>

#include <kelcheckbox.h>
#include <kelcombobox.h>
#include <kelnavigationtable.h>
#include <kelpushbutton.h>

#include <cmath>
#include <cstring>

namespace {

constexpr int roleCount = KELTheme::Disabled + 1;
constexpr int fileRoleCount = KELTheme::Disabled;
constexpr int settleMs = 100; // an editor writes a file in several steps
constexpr float outlinePx = 1;
constexpr qreal radiusPx = 12;
constexpr qreal pressedPart = 0.08;
constexpr qreal disabledPart = 0.6;
constexpr qreal leastContrast = 4.5;
constexpr qreal leastDisabledContrast = 3;
constexpr qreal leastKnobContrast = 3;
constexpr QRgb comboGround = 0xff222935;

const char *const schemeNames[] = {"light", "dark", "highContrast"};
const char *const roleNames[] = {"background", "surface", "raised",   "line", "text",
                                 "muted",      "accent",  "onAccent", "good", "warning",
                                 "bad",        "onBad",   "track"};

constexpr QRgb schemes[][fileRoleCount] = {
    {0xfff3f5f8, 0xffffffff, 0xffffffff, 0xffd5dce5, 0xff141a22, 0xff56616f, 0xff0b62d6, 0xffffffff,
     0xff0e7a4b, 0xff9a5b00, 0xffc42b2b, 0xffffffff, 0xffdde3eb},
    {0xff0e1116, 0xff181d25, 0xff222935, 0xff2e3745, 0xfff2f5f9, 0xff9aa7b8, 0xff4da3ff, 0xff06121f,
     0xff3dd68c, 0xffffb547, 0xffff6b6b, 0xff1c0505, 0xff2a3240},
    {0xff000000, 0xff000000, 0xff000000, 0xffffffff, 0xffffffff, 0xffffffff, 0xffffe100, 0xff000000,
     0xff5cff8f, 0xffffe100, 0xffff8a8a, 0xff000000, 0xff5a5a5a},
};

qreal luminance(QRgb colour)
{
    const auto linear = [](int part) {
        const qreal share = part / 255.0;
        return share <= 0.03928 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(qRed(colour)) + 0.7152 * linear(qGreen(colour))
        + 0.0722 * linear(qBlue(colour));
}

qreal contrast(QRgb one, QRgb other)
{
    const qreal first = luminance(one);
    const qreal second = luminance(other);
    return (qMax(first, second) + 0.05) / (qMin(first, second) + 0.05);
}

// The part of other in it.
QRgb mixed(QRgb colour, QRgb other, qreal part)
{
    const auto mix = [part](int from, int to) { return qRound(from + (to - from) * part); };
    return qRgb(mix(qRed(colour), qRed(other)), mix(qGreen(colour), qGreen(other)),
                mix(qBlue(colour), qBlue(other)));
}

// Colour, as near to it as shows the text.
QRgb groundFor(QRgb text, QRgb colour, QRgb towards)
{
    constexpr int steps = 20;
    QRgb ground = colour;
    for (int step = 1; step <= steps && contrast(text, ground) < leastContrast; ++step)
        ground = mixed(colour, towards, qreal(step) / steps);
    return ground;
}

// 60 % of the contrast of text, and at least 3.
QRgb disabledText(QRgb text, QRgb ground)
{
    constexpr int steps = 50;
    const qreal wanted = qMax(contrast(text, ground) * disabledPart, leastDisabledContrast);
    QRgb colour = text;
    for (int step = 1; step < steps; ++step) {
        const QRgb next = mixed(text, ground, qreal(step) / steps);
        if (contrast(next, ground) < wanted)
            break;
        colour = next;
    }
    return colour;
}

// A switch that is on has a track of its knob's colour, lighter by 70, that lets through a little
// of the ground; the darker the knob, the better it shows.
QRgb knobFor(QRgb accent, QRgb track, QRgb ground)
{
    constexpr int lighter = 70;
    constexpr int mostPart = 185;
    constexpr int steps = 20;
    QRgb knob = 0;
    for (int step = 0; step <= steps; ++step) {
        knob = mixed(accent, 0xff000000, qreal(step) / steps);
        knob = qRgb(qMin(qRed(knob), mostPart), qMin(qGreen(knob), mostPart),
                    qMin(qBlue(knob), mostPart));
        const QRgb lit = qRgb(qRed(knob) + lighter, qGreen(knob) + lighter, qBlue(knob) + lighter);
        const QRgb on = mixed(lit, ground, lighter / 255.0);
        if (contrast(knob, on) >= leastKnobContrast && contrast(knob, track) >= leastKnobContrast)
            break;
    }
    return knob;
}

// The knob of a disabled switch is darker than the track by 70.
QRgb switchTrack(QRgb track)
{
    constexpr int leastPart = 70;
    return qRgb(qMax(qRed(track), leastPart), qMax(qGreen(track), leastPart),
                qMax(qBlue(track), leastPart));
}

KELThemePrivate *firstTheme = nullptr;

int lineOf(const QByteArray &text, int offset)
{
    return text.left(offset).count('\n') + 1;
}

} // namespace

struct KELThemeSample
{
    QGraphicsObject *object = nullptr;
    char *record = nullptr;
};

// What a look makes of a kind of object: one that is new, one in the look before, one in this look.
struct KELThemeKind
{
    KELThemeSample fresh;
    KELThemeSample last;
    KELThemeSample next;
    QVector<const KELStyleField *> fields; // that differ among the three
    bool isPart = false;
    bool isButton = false;
    bool isComboBox = false;
};

class KELThemePrivate
{
public:
    enum class Items { New, Known };

    explicit KELThemePrivate(KELTheme *theme);
    ~KELThemePrivate();

    void setRoles(const QRgb *newRoles);
    void makeLook();
    void findFields();
    void keepLook();
    void dressAll(Items items);
    void dressTree(QGraphicsItem *item, Items items);
    void dressScene(QGraphicsScene *scene, Items items);
    const KELThemeKind *dress(QGraphicsObject *object);
    void tellParts();
    void dressCombo(QGraphicsObject *combo);
    void setStates(KELPushButton *button) const;
    void dressControl(KELRoundRectControl *control) const;
    void dressPart(KELPartStyle *style) const;
    void partEntered(const QGraphicsScene *scene) const;
    void watch(const QString &path);
    void readAgain();
    bool read();
    bool fail(int line, const QString &text);
    bool use(const QByteArray &text, const QJsonObject &file);
    bool useClass(const QByteArray &text, const QString &name, const QJsonObject &fields);

    KELTheme *const q;
    KELThemePrivate *nextTheme = firstTheme;
    QVector<QPointer<QObject>> roots;
    QVector<QPointer<QObject>> changedParts;
    QVector<KELThemeKind> kinds;
    QRgb roles[roleCount] = {};
    QRgb pressedGround = 0;
    QString path;
    QFileSystemWatcher *watcher = nullptr;
    KELTheme::Scheme scheme = KELTheme::Light;
    bool isLookingAgain = false;
};

KELThemePrivate::KELThemePrivate(KELTheme *theme) : q(theme)
{
    firstTheme = this;
    kinds.resize(KELStyleRecord::kinds());
    for (int i = 0; i < kinds.size(); ++i) {
        KELThemeKind &kind = kinds[i];
        for (KELThemeSample *sample : {&kind.fresh, &kind.last, &kind.next}) {
            sample->object = KELStyleRecord::make(i);
            sample->record = KELStyleRecord::of(sample->object);
        }
        kind.isPart = qobject_cast<KELPart *>(kind.fresh.object);
        kind.isButton = qobject_cast<KELPushButton *>(kind.fresh.object);
        kind.isComboBox = qobject_cast<KELComboBox *>(kind.fresh.object);
    }
    setRoles(schemes[KELTheme::Light]);
    makeLook();
    findFields();
}

KELThemePrivate::~KELThemePrivate()
{
    KELThemePrivate **link = &firstTheme;
    while (*link != this)
        link = &(*link)->nextTheme;
    *link = nextTheme;
    for (const KELThemeKind &kind : qAsConst(kinds)) {
        delete kind.fresh.object;
        delete kind.last.object;
        delete kind.next.object;
    }
}

void KELThemePrivate::setRoles(const QRgb *newRoles)
{
    std::memcpy(roles, newRoles, fileRoleCount * sizeof(QRgb));
    roles[KELTheme::Disabled] = disabledText(roles[KELTheme::Text], roles[KELTheme::Surface]);
    pressedGround = mixed(roles[KELTheme::Raised], roles[KELTheme::Text], pressedPart);
}

// The look before becomes that which hand-written fields are told from.
void KELThemePrivate::keepLook()
{
    for (KELThemeKind &kind : kinds)
        qSwap(kind.last, kind.next);
}

void KELThemePrivate::makeLook()
{
    for (const KELThemeKind &kind : qAsConst(kinds)) {
        QGraphicsObject *const next = kind.next.object;
        for (int i = 0; const KELStyleField *field = KELStyleRecord::field(next, i); ++i)
            KELStyleRecord::copy(*field, kind.next.record, kind.fresh.record);
        if (kind.isPart)
            dressPart(static_cast<KELPart *>(next)->partStyle());
        else
            dressControl(static_cast<KELRoundRectControl *>(next));
    }
}

void KELThemePrivate::findFields()
{
    for (KELThemeKind &kind : kinds) {
        kind.fields.clear();
        QGraphicsObject *const next = kind.next.object;
        for (int i = 0; const KELStyleField *field = KELStyleRecord::field(next, i); ++i) {
            if (!KELStyleRecord::isEqual(*field, kind.fresh.record, kind.next.record)
                || !KELStyleRecord::isEqual(*field, kind.fresh.record, kind.last.record))
                kind.fields.append(field);
        }
    }
}

void KELThemePrivate::dressPart(KELPartStyle *style) const
{
    const auto colour = [this](KELTheme::Role role) { return QBrush(QColor(roles[role])); };
    style->backgroundBrush = colour(KELTheme::Surface);
    style->pressedBrush = QColor(
        mixed(roles[KELTheme::Surface], roles[KELTheme::Text], pressedPart));
    style->selectedBrush = style->accentBrush = colour(KELTheme::Accent);
    style->selectedForegroundBrush = style->accentForegroundBrush = colour(KELTheme::OnAccent);
    style->foregroundBrush = colour(KELTheme::Text);
    style->mutedBrush = style->knobBrush = colour(KELTheme::Muted);
    style->disabledBrush = colour(KELTheme::Disabled);
    style->borderBrush = colour(KELTheme::Line);
    style->trackBrush = colour(KELTheme::Track);
}

void KELThemePrivate::dressControl(KELRoundRectControl *control) const
{
    KELRoundRectControlStyle *const style = control->style();
    const auto colour = [this](KELTheme::Role role) { return QBrush(QColor(roles[role])); };
    const QByteArray name = control->metaObject()->className();
    const bool isButton = name == "KELPushButton";
    style->foregroundBrush = colour(KELTheme::Text);
    if (isButton || name == "KELRoundRectControl") {
        style->backgroundBrush = colour(isButton ? KELTheme::Raised : KELTheme::Surface);
        style->borderBrush = colour(KELTheme::Line);
        style->borderWidth = outlinePx;
        style->xRadius = style->yRadius = radiusPx;
    } else if (name == "KELCheckBox") {
        const QRgb track = switchTrack(roles[KELTheme::Track]);
        style->backgroundBrush = QColor(track);
        style->borderBrush = colour(KELTheme::Muted);
        static_cast<KELCheckBoxStyle *>(style)->indicatorBrush = QColor(
            knobFor(roles[KELTheme::Accent], track, roles[KELTheme::Surface]));
    } else if (name == "KELRadioBox") {
        style->backgroundBrush = colour(KELTheme::Surface);
        style->borderBrush = colour(KELTheme::Muted);
        style->foregroundBrush = colour(KELTheme::Accent);
    } else if (name == "KELProcessBar") {
        style->backgroundBrush = colour(KELTheme::Track);
        style->borderBrush = QColor(
            groundFor(roles[KELTheme::Text], roles[KELTheme::Accent], roles[KELTheme::Surface]));
    } else if (name == "KELSlideControl") {
        style->backgroundBrush = colour(KELTheme::Track);
        style->borderBrush = colour(KELTheme::Surface);
        style->foregroundBrush = colour(KELTheme::Accent);
    } else if (name == "KELLineItem") {
        style->borderBrush = colour(KELTheme::Line);
    } else if (name == "KELNavigationTable") {
        auto *const own = static_cast<KELNavigationTableStyle *>(style);
        style->backgroundBrush = colour(KELTheme::Surface);
        own->titleBackgroundBrush = colour(KELTheme::Raised);
        own->titleForegroundBrush = colour(KELTheme::Text);
    } else if (name == "KELNavigationTableItem") {
        auto *const own = static_cast<KELNavigationTableItemStyle *>(style);
        // Where nothing is raised, the tab of the page in sight is to be told by its colour.
        const bool isRaised = roles[KELTheme::Raised] != roles[KELTheme::Background];
        const QRgb tab = roles[isRaised ? KELTheme::Raised : KELTheme::Accent];
        own->buttonBackground = QColor(
            groundFor(roles[KELTheme::Text], tab, roles[KELTheme::Surface]));
        own->buttonForeground = colour(KELTheme::Text);
    }
}

void KELThemePrivate::setStates(KELPushButton *button) const
{
    // The search for the property alone would take longer than all the rest.
    if (!button->dynamicPropertyNames().isEmpty() && button->property("ownStates").toBool())
        return;
    const QRgb pressed = pressedGround;
    const QRgb checked = roles[KELTheme::Accent];
    const QRgb onChecked = roles[KELTheme::OnAccent];
    const QRgb disabled = roles[KELTheme::Disabled];
    button->setIsMouseDownTemplate([pressed, checked](KELPushButtonStyle &look) {
        if (look.backgroundBrush.color() != QColor(checked))
            look.backgroundBrush = QColor(pressed);
    });
    button->setIsCheckedTemplate([checked, onChecked](KELPushButtonStyle &look) {
        look.backgroundBrush = QColor(checked);
        look.foregroundBrush = QColor(onChecked);
    });
    button->setIsDisableTemplate([disabled](KELPushButtonStyle &look) {
        look.foregroundBrush = QColor(disabled);
        look.borderBrush = QBrush(Qt::NoBrush);
    });
}

// Its labels are light whatever their records say, and its list is dark.
void KELThemePrivate::dressCombo(QGraphicsObject *combo)
{
    const QList<QGraphicsItem *> children = combo->childItems();
    for (QGraphicsItem *child : children) {
        auto *const button = qobject_cast<KELPushButton *>(child->toGraphicsObject());
        if (!button || button->style()->backgroundBrush.style() != Qt::NoBrush)
            continue;
        button->style()->backgroundBrush = QColor(comboGround);
        button->update();
    }
}

// Returns the kind, or null if it has no style record.
const KELThemeKind *KELThemePrivate::dress(QGraphicsObject *object)
{
    const int number = KELStyleRecord::kindOf(object);
    if (number < 0)
        return nullptr;
    const KELThemeKind &kind = kinds.at(number);
    char *const record = KELStyleRecord::of(object);
    bool isChanged = false;
    for (const KELStyleField *field : kind.fields) {
        if (KELStyleRecord::isEqual(*field, record, kind.next.record)
            || !(KELStyleRecord::isEqual(*field, record, kind.last.record)
                 || KELStyleRecord::isEqual(*field, record, kind.fresh.record)))
            continue;
        KELStyleRecord::copy(*field, record, kind.next.record);
        isChanged = true;
    }
    if (kind.isButton)
        setStates(static_cast<KELPushButton *>(object));
    if (isChanged && kind.isPart)
        changedParts.append(object);
    else if (isChanged)
        object->update();
    return &kind;
}

// Parts are told when no tree is being walked any more: what they do may be seen by slots.
void KELThemePrivate::tellParts()
{
    const QPointer<KELTheme> self(q);
    while (self && !changedParts.isEmpty()) {
        const QPointer<QObject> part = changedParts.takeLast();
        if (part)
            static_cast<KELPart *>(part.data())->styleChanged();
    }
}

// Of an item that is new, what is added to it is noticed from now on.
void KELThemePrivate::dressTree(QGraphicsItem *item, Items items)
{
    if (QGraphicsObject *object = item->toGraphicsObject()) {
        if (items == Items::New)
            QObject::connect(object, &QGraphicsObject::childrenChanged, q, &KELTheme::lookAgain,
                             Qt::UniqueConnection);
        const KELThemeKind *const kind = dress(object);
        if (kind && kind->isComboBox) {
            dressCombo(object);
            return;
        }
    }
    const QList<QGraphicsItem *> children = item->childItems();
    for (QGraphicsItem *child : children)
        dressTree(child, items);
}

void KELThemePrivate::dressScene(QGraphicsScene *scene, Items items)
{
    scene->setBackgroundBrush(QColor(roles[KELTheme::Background]));
    const QList<QGraphicsItem *> all = scene->items();
    for (QGraphicsItem *item : all) {
        if (!item->parentItem())
            dressTree(item, items);
    }
    const QList<QGraphicsView *> views = scene->views();
    for (QGraphicsView *view : views) {
        if (auto *screen = qobject_cast<KELScreen *>(view))
            QObject::connect(screen, &KELScreen::currentPageChanged, q, &KELTheme::dressAgain,
                             Qt::UniqueConnection);
    }
}

void KELThemePrivate::dressAll(Items items)
{
    for (int i = roots.size() - 1; i >= 0; --i) {
        if (!roots.at(i))
            roots.remove(i);
        else if (auto *scene = qobject_cast<QGraphicsScene *>(roots.at(i).data()))
            dressScene(scene, items);
        else
            dressTree(static_cast<QGraphicsObject *>(roots.at(i).data()), items);
    }
    tellParts();
}

bool KELThemePrivate::fail(int line, const QString &text)
{
    Q_EMIT q->failed(line, text);
    return false;
}

bool KELThemePrivate::useClass(const QByteArray &text, const QString &name,
                               const QJsonObject &fields)
{
    bool isKnown = false;
    const int section = text.indexOf('"' + name.toUtf8() + '"');
    for (int i = 0; i < kinds.size(); ++i) {
        if (!KELStyleRecord::inherits(i, name))
            continue;
        isKnown = true;
        const KELThemeSample &next = kinds.at(i).next;
        for (auto it = fields.begin(); it != fields.end(); ++it) {
            const KELStyleField *const field = KELStyleRecord::field(next.object, it.key());
            const QString value = it.value().toVariant().toString();
            if (field && KELStyleRecord::fromText(*field, next.record, value))
                continue;
            const int offset = text.indexOf('"' + it.key().toUtf8() + '"', section);
            return fail(lineOf(text, offset),
                        field ? QStringLiteral("\"%1\" is no value for %2").arg(value, it.key())
                              : QStringLiteral("%1 has no field %2").arg(name, it.key()));
        }
    }
    return isKnown || fail(lineOf(text, section), QStringLiteral("there is no class %1").arg(name));
}

bool KELThemePrivate::use(const QByteArray &text, const QJsonObject &file)
{
    int base = 0;
    const QString baseName = file.value(QLatin1String("base")).toString(QStringLiteral("light"));
    while (base < 3 && baseName != QLatin1String(schemeNames[base]))
        ++base;
    if (base == 3)
        return fail(lineOf(text, text.indexOf("\"base\"")),
                    QStringLiteral("\"%1\" is no base").arg(baseName));
    QRgb newRoles[fileRoleCount];
    std::memcpy(newRoles, schemes[base], sizeof newRoles);
    const QJsonObject roleObject = file.value(QLatin1String("roles")).toObject();
    for (auto it = roleObject.begin(); it != roleObject.end(); ++it) {
        int role = 0;
        while (role < fileRoleCount && it.key() != QLatin1String(roleNames[role]))
            ++role;
        const QColor colour(it.value().toString());
        if (role == fileRoleCount || !colour.isValid())
            return fail(lineOf(text, text.indexOf('"' + it.key().toUtf8() + '"')),
                        role == fileRoleCount
                            ? QStringLiteral("there is no role %1").arg(it.key())
                            : QStringLiteral("%1 is no colour").arg(it.value().toString()));
        newRoles[role] = colour.rgb();
    }
    setRoles(newRoles);
    makeLook();
    for (int isDerived = 0; isDerived < 2; ++isDerived) {
        for (auto it = file.begin(); it != file.end(); ++it) {
            const bool isBase = it.key() == QLatin1String("KELRoundRectControl");
            if (it.key() != QLatin1String("base") && it.key() != QLatin1String("roles")
                && isBase == (isDerived == 0) && !useClass(text, it.key(), it.value().toObject()))
                return false;
        }
    }
    scheme = KELTheme::Scheme(base);
    return true;
}

// A look that fails half-way is made again from what was before.
bool KELThemePrivate::read()
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return fail(0, QStringLiteral("%1 cannot be read").arg(path));
    const QByteArray text = file.readAll();
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(text, &error);
    if (!document.isObject()) {
        const bool isParsed = error.error == QJsonParseError::NoError;
        return fail(isParsed ? 1 : lineOf(text, error.offset),
                    isParsed ? QStringLiteral("not an object") : error.errorString());
    }
    QRgb before[roleCount];
    std::memcpy(before, roles, sizeof before);
    const QPointer<KELTheme> self(q);
    keepLook();
    if (!use(text, document.object())) {
        if (self) {
            keepLook();
            std::memcpy(roles, before, sizeof before);
            setRoles(before);
        }
        return false;
    }
    findFields();
    dressAll(Items::Known);
    if (self)
        Q_EMIT self->changed();
    return true;
}

// An editor may replace the file: then the folder tells.
void KELThemePrivate::watch(const QString &newPath)
{
    path = newPath;
    delete watcher;
    watcher = nullptr;
    if (path.isEmpty())
        return;
    watcher = new QFileSystemWatcher({path, QFileInfo(path).absolutePath()}, q);
    const auto readSoon = [this] {
        QTimer::singleShot(settleMs, watcher, [this] { readAgain(); });
    };
    QObject::connect(watcher, &QFileSystemWatcher::fileChanged, watcher, readSoon);
    QObject::connect(watcher, &QFileSystemWatcher::directoryChanged, watcher, [this, readSoon] {
        if (!watcher->files().contains(path) && QFile::exists(path))
            readSoon();
    });
}

void KELThemePrivate::readAgain()
{
    if (!watcher->files().contains(path))
        watcher->addPath(path);
    read();
}

// It may still be being made.
void KELThemePrivate::partEntered(const QGraphicsScene *scene) const
{
    for (const QPointer<QObject> &root : roots) {
        if (root == scene)
            q->lookAgain();
    }
}

void KELThemes::partEntered(const QGraphicsScene *scene)
{
    for (const KELThemePrivate *theme = firstTheme; theme; theme = theme->nextTheme)
        theme->partEntered(scene);
}

KELTheme::KELTheme(QObject *parent) : QObject(parent), d(new KELThemePrivate(this)) { }

KELTheme::~KELTheme()
{
    delete d;
}

KELTheme::Scheme KELTheme::scheme() const
{
    return d->scheme;
}

QColor KELTheme::color(Role role) const
{
    return role >= 0 && role < roleCount ? QColor(d->roles[role]) : QColor();
}

void KELTheme::applyTo(QGraphicsScene *scene)
{
    if (!scene)
        return;
    if (!d->roots.contains(scene))
        d->roots.append(scene);
    d->dressScene(scene, KELThemePrivate::Items::New);
    d->tellParts();
}

void KELTheme::applyTo(QGraphicsObject *root)
{
    if (!root)
        return;
    if (!d->roots.contains(root))
        d->roots.append(root);
    d->dressTree(root, KELThemePrivate::Items::New);
    d->tellParts();
}

bool KELTheme::load(const QString &path)
{
    d->watch(path);
    return d->read();
}

void KELTheme::setScheme(Scheme scheme)
{
    if (scheme < Light || scheme > HighContrast)
        return;
    d->watch(QString());
    d->scheme = scheme;
    d->keepLook();
    d->setRoles(schemes[scheme]);
    d->makeLook();
    d->findFields();
    const QPointer<KELTheme> self(this);
    d->dressAll(KELThemePrivate::Items::Known);
    if (self)
        Q_EMIT changed();
}

// A child item that has just got its parent is still being made.
void KELTheme::lookAgain()
{
    if (d->isLookingAgain)
        return;
    d->isLookingAgain = true;
    QMetaObject::invokeMethod(this, &KELTheme::dressAgain, Qt::QueuedConnection);
}

void KELTheme::dressAgain()
{
    d->isLookingAgain = false;
    d->dressAll(KELThemePrivate::Items::New);
}
