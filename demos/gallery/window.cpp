// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "window.h"

#include "homepage.h"
#include "pageregistry.h"

#include <QtGui/QPixmapCache>
#include <QtWidgets/QApplication>
#include <QtWidgets/QShortcut>

namespace {

constexpr int bytesPerPixel = 4;
constexpr int usualCacheKb = 10240;

constexpr KELTheme::Scheme looks[] = {KELTheme::Light, KELTheme::Dark, KELTheme::HighContrast};
const char *const lookNames[] = {QT_TRANSLATE_NOOP("Window", "Light"),
                                 QT_TRANSLATE_NOOP("Window", "Dark"),
                                 QT_TRANSLATE_NOOP("Window", "High contrast")};
const char *const languageCodes[] = {"en", "de", "ar"};
const char *const languageNames[] = {"English", "Deutsch",
                                     "\u0627\u0644\u0639\u0631\u0628\u064A\u0629"};

const QGraphicsItem *visibleItem(const QGraphicsView &view, const QString &name)
{
    const QList<QGraphicsItem *> items = view.scene()->items();
    for (const QGraphicsItem *item : items) {
        const QGraphicsObject *object = item->toGraphicsObject();
        if (object && object->objectName() == name && item->isVisible())
            return item;
    }
    return nullptr;
}

} // namespace

// Q_INIT_RESOURCE does not work inside a namespace.
static void useResources()
{
    Q_INIT_RESOURCE(gallery);
#ifdef GALLERY_IS_TRANSLATED
    Q_INIT_RESOURCE(translations);
#endif
}

Window::Window(const QSize &size, EventLog *log, const IconSet *icons) :
    m_host{this, &m_theme, log, icons, &m_memory}, m_home(new HomePage(m_host))
{
    useResources();
    // A desktop may give the window a frame; without a window manager nothing changes.
    setWindowFlags(Qt::Window);
    setWindowTitle(QStringLiteral("KELGdiControl Gallery"));
    connect(new QShortcut(QKeySequence::Quit, this), &QShortcut::activated, this, &QWidget::close);
    connect(m_home, &HomePage::chosen, this, &Window::showPage);
    connect(m_home, &HomePage::nextLookAsked, this, &Window::nextLook);
    connect(m_home, &HomePage::nextLanguageAsked, this, &Window::nextLanguage);
    m_theme.applyTo(scene());
    resize(size);
    push(m_home);
}

Window::~Window()
{
    // Before the widgets below this one: controls point to menus, and pages to embedded views.
    showPage(-1);
    QCoreApplication::removeTranslator(&m_translator);
}

void Window::showPage(int page)
{
    while (pageCount() > 1)
        delete currentPage();
    if (page >= 0)
        push(newGalleryPage(m_host, galleryPages().at(size_t(page))));
}

void Window::setLook(KELTheme::Scheme look)
{
    m_theme.setScheme(look);
}

QString Window::lookName() const
{
    return tr(lookNames[m_theme.scheme()]);
}

void Window::setLanguage(Language language)
{
    m_language = language;
    QCoreApplication::removeTranslator(&m_translator);
    // Without translations all is in English.
    if (m_translator.load(QStringLiteral(":/translations/gallery_%1.qm")
                              .arg(QLatin1String(languageCodes[language]))))
        QCoreApplication::installTranslator(&m_translator);
    QGuiApplication::setLayoutDirection(language == Arabic ? Qt::RightToLeft : Qt::LeftToRight);
    m_home->retranslate();
}

bool Window::isTranslated()
{
#ifdef GALLERY_IS_TRANSLATED
    return true;
#else
    return false;
#endif
}

QString Window::languageName() const
{
    return QString::fromUtf8(languageNames[m_language]);
}

QRect Window::geometryOf(const QString &name) const
{
    if (const QGraphicsItem *item = visibleItem(*this, name))
        return mapFromScene(item->sceneBoundingRect()).boundingRect();
    const auto views = findChildren<QGraphicsView *>();
    for (const QGraphicsView *view : views) {
        // Not with mapFromScene(): a view that is not shown yet has no layout.
        if (const QGraphicsItem *item = visibleItem(*view, name)) {
            return view->transform()
                .mapRect(item->sceneBoundingRect())
                .toRect()
                .translated(mapFromGlobal(view->mapToGlobal(QPoint())));
        }
    }
    return QRect();
}

void Window::resizeEvent(QResizeEvent *event)
{
    // Room for a few layers of controls over the whole window.
    QPixmapCache::setCacheLimit(qMax(usualCacheKb, 4 * width() * height() * bytesPerPixel / 1024));
    KELScreen::resizeEvent(event);
}

void Window::nextLook()
{
    setLook(looks[(m_theme.scheme() + 1) % int(std::size(looks))]);
}

void Window::nextLanguage()
{
    setLanguage(Language((m_language + 1) % int(std::size(languageCodes))));
}
