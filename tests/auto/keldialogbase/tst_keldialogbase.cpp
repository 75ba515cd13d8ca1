// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "keltest.h"

#include <kelcontentview.h>
#include <keldialogbase.h>
#include <kelpushbutton.h>

#include <QtCore/QPointer>
#include <QtWidgets/QGraphicsPixmapItem>

#include <limits>
#include <memory>

// While it lives the program has no resource. The macros do not work in a namespace.
class WithoutResource
{
public:
    WithoutResource() { Q_CLEANUP_RESOURCE(dialogbody); }
    ~WithoutResource() { Q_INIT_RESOURCE(dialogbody); }

private:
    Q_DISABLE_COPY(WithoutResource)
};

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinite = std::numeric_limits<double>::infinity();

const QRect shortMessage(185, 210, 430, 180);
const QRect longMessage(185, 155, 430, 290);

// The resource of this program is a picture of this many fields, each one pixel.
constexpr int fieldsPerSide = 10;

// That picture in another size, which must be a multiple.
QImage drawnBody(const QSize &size)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&image);
    const QSize field = size / fieldsPerSide;
    for (int row = 0; row < fieldsPerSide; ++row) {
        for (int column = 0; column < fieldsPerSide; ++column) {
            painter.fillRect(QRect(QPoint(column * field.width(), row * field.height()), field),
                             QColor(25 * column, 25 * row, 128));
        }
    }
    return image;
}

QImage picture(const QPixmap &pixmap)
{
    return pixmap.toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

QPixmap filled(const QSize &size, const QColor &colour)
{
    QPixmap pixmap(size);
    pixmap.fill(colour);
    return pixmap;
}

QList<QGraphicsPixmapItem *> bodies(const QGraphicsScene *scene)
{
    QList<QGraphicsPixmapItem *> found;
    const QList<QGraphicsItem *> items = scene->items(Qt::AscendingOrder);
    for (QGraphicsItem *item : items) {
        if (auto *body = qgraphicsitem_cast<QGraphicsPixmapItem *>(item))
            found.append(body);
    }
    return found;
}

// The only one, or null.
QGraphicsPixmapItem *body(const KELDialogBase &dialog)
{
    const QList<QGraphicsPixmapItem *> found = bodies(dialog.view()->scene());
    return found.size() == 1 ? found.constFirst() : nullptr;
}

enum class Constructor { Plain, ShortMessage, LongMessage };

std::unique_ptr<KELDialogBase> make(Constructor constructor, QWidget *parent = nullptr)
{
    if (constructor == Constructor::Plain)
        return std::make_unique<KELDialogBase>(parent);
    const double size = constructor == Constructor::LongMessage ? 3 : 1;
    return std::make_unique<KELDialogBase>(u"text"_s, size, parent);
}

} // namespace

Q_DECLARE_METATYPE(Constructor)

void addConstructors()
{
    QTest::addColumn<Constructor>("constructor");
    QTest::addColumn<QRect>("geometry");

    QTest::newRow("plain") << Constructor::Plain << QRect(200, 186, 400, 250);
    QTest::newRow("short message") << Constructor::ShortMessage << shortMessage;
    QTest::newRow("long message") << Constructor::LongMessage << longMessage;
}

// What lies there, from the bottom to the top.
QList<QGraphicsItem *> itemsAt(const KELDialogBase &dialog, const QPointF &pos)
{
    return dialog.view()->scene()->items(pos, Qt::IntersectsItemBoundingRect, Qt::AscendingOrder);
}

KELPushButton *addButton(const KELDialogBase &dialog)
{
    auto *button = new KELPushButton;
    button->setboundRect(0, 0, 20, 20);
    dialog.view()->scene()->addItem(button);
    return button;
}

enum class Deleted { ByApplication, WithTheScene, BySetContent, Twice };
Q_DECLARE_METATYPE(Deleted)

// Taps the middle of the button, as a finger does.
void tap(const KELDialogBase *dialog, const KELPushButton *button)
{
    static QTouchDevice *const device = QTest::createTouchDevice();
    const KELContentView *const view = dialog->view();
    const QPoint pos = view->mapFromScene(button->mapToScene(button->boundingRect().center()));
    QTest::touchEvent(view->viewport(), device).press(0, pos, view->viewport());
    QTest::touchEvent(view->viewport(), device).release(0, pos, view->viewport());
}

class tst_KELDialogBase : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void plainDialogHasItsPlace()
    {
        const KELDialogBase dialog;
        QCOMPARE(dialog.geometry(), QRect(200, 186, 400, 250));
        QCOMPARE(dialog.view()->geometry(), QRect(0, 0, 400, 250));
        QVERIFY(dialog.isHidden());
    }

    void messageDecidesAboutThePlace_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<double>("size");
        QTest::addColumn<QRect>("geometry");

        const QString text = u"text"_s;
        const QString empty = u""_s;
        QTest::newRow("at the limit") << text << 2.2 << shortMessage;
        QTest::newRow("just above the limit") << text << 2.2000001 << longMessage;
        QTest::newRow("next number above the limit")
            << text << std::nextafter(2.2, 3.0) << longMessage;
        QTest::newRow("next number below the limit")
            << text << std::nextafter(2.2, 2.0) << shortMessage;
        QTest::newRow("single precision limit") << text << double(2.2F) << longMessage;
        QTest::newRow("large") << text << 3.0 << longMessage;
        QTest::newRow("small") << text << 1.0 << shortMessage;
        QTest::newRow("zero") << text << 0.0 << shortMessage;
        QTest::newRow("negative") << text << -1.0 << shortMessage;
        QTest::newRow("negative large") << text << -3.0 << shortMessage;
        QTest::newRow("not a number") << text << notANumber << shortMessage;
        QTest::newRow("infinite") << text << infinite << longMessage;
        QTest::newRow("negative infinite") << text << -infinite << shortMessage;
        QTest::newRow("blank, large") << u" "_s << 3.0 << longMessage;
        QTest::newRow("long text, small") << text.repeated(1000) << 2.0 << shortMessage;
        QTest::newRow("empty, at the limit") << empty << 2.2 << shortMessage;
        QTest::newRow("empty, large") << empty << 3.0 << shortMessage;
        QTest::newRow("empty, infinite") << empty << infinite << shortMessage;
        QTest::newRow("empty, not a number") << empty << notANumber << shortMessage;
        QTest::newRow("null, large") << QString() << 3.0 << shortMessage;
        QTest::newRow("null, small") << QString() << 1.0 << shortMessage;
    }

    void messageDecidesAboutThePlace()
    {
        QFETCH(QString, text);
        QFETCH(double, size);
        QFETCH(QRect, geometry);
        const KELDialogBase dialog(text, size, nullptr);
        QCOMPARE(dialog.geometry(), geometry);
        QCOMPARE(dialog.view()->geometry(), QRect(QPoint(0, 0), geometry.size()));
        // The text is not shown: there is the body and nothing else.
        QCOMPARE(dialog.view()->scene()->items().size(), 1);
        QCOMPARE(dialog.windowTitle(), QString());
    }

    void hasTheLookOfAnOverlay_data() { addConstructors(); }

    void hasTheLookOfAnOverlay()
    {
        QFETCH(Constructor, constructor);
        const auto dialog = make(constructor);
        QCOMPARE(dialog->styleSheet(), u"background: transparent;"_s);
        QVERIFY(dialog->testAttribute(Qt::WA_TranslucentBackground));
        QVERIFY(!dialog->isModal());
    }

    void isAFramelessWindowWithoutParent_data() { addConstructors(); }

    void isAFramelessWindowWithoutParent()
    {
        QFETCH(Constructor, constructor);
        const auto dialog = make(constructor);
        QCOMPARE(dialog->parent(), nullptr);
        QVERIFY(dialog->isWindow());
        QCOMPARE(dialog->windowFlags() & ~Qt::WindowFlags(Qt::Window), Qt::FramelessWindowHint);
    }

    void isAChildWidgetWithParent_data() { addConstructors(); }

    void isAChildWidgetWithParent()
    {
        QFETCH(Constructor, constructor);
        QFETCH(QRect, geometry);
        QWidget parent;
        const auto dialog = make(constructor, &parent);
        QCOMPARE(dialog->parentWidget(), &parent);
        QVERIFY(!dialog->isWindow());
        QCOMPARE(dialog->windowFlags(), Qt::FramelessWindowHint);
        QCOMPARE(dialog->geometry(), geometry);
    }

    void becomesAWindowAboveItsParent()
    {
        QWidget parent;
        KELDialogBase dialog(&parent);
        dialog.setWindowFlags(Qt::Dialog | Qt::FramelessWindowHint);
        QVERIFY(dialog.isWindow());
        QCOMPARE(dialog.size(), QSize(400, 250));
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        QCOMPARE(dialog.size(), QSize(400, 250));
    }

    void declaresNoInterfaceOfItsOwn()
    {
        const QMetaObject &meta = KELDialogBase::staticMetaObject;
        QCOMPARE(QByteArray(meta.className()), QByteArray("KELDialogBase"));
        QCOMPARE(meta.superClass(), &QDialog::staticMetaObject);
        QCOMPARE(meta.methodCount(), meta.methodOffset());
        QCOMPARE(meta.propertyCount(), meta.propertyOffset());
    }

    void viewBelongsToTheDialog_data() { addConstructors(); }

    void viewBelongsToTheDialog()
    {
        QFETCH(Constructor, constructor);
        const auto dialog = make(constructor);
        QCOMPARE(dialog->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly),
                 QList<QWidget *>({dialog->view()}));
        QVERIFY(!dialog->view()->isWindow());
        QCOMPARE(dialog->view()->content(), nullptr);
        QCOMPARE(dialog->layout(), nullptr);
    }

    void viewKeepsItsSize()
    {
        KELDialogBase dialog;
        dialog.show();
        dialog.resize(500, 300);
        QCoreApplication::processEvents();
        QCOMPARE(dialog.view()->geometry(), QRect(0, 0, 400, 250));
    }

    void opensAtItsPlace()
    {
        KELDialogBase dialog(u"text"_s, 3, nullptr);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        QCOMPARE(dialog.geometry(), longMessage);
        QVERIFY(dialog.view()->isVisible());
        QCOMPARE(dialog.view()->sceneRect(), QRectF(0, 0, 430, 290));
    }

    void bodyIsScaledToTheView_data() { addConstructors(); }

    void bodyIsScaledToTheView()
    {
        QFETCH(Constructor, constructor);
        QFETCH(QRect, geometry);
        const auto dialog = make(constructor);
        const QGraphicsPixmapItem *item = body(*dialog);
        QVERIFY(item);
        QCOMPARE(KelImage::difference(picture(item->pixmap()), drawnBody(geometry.size())),
                 QString());
        QCOMPARE(item->pos(), QPointF());
        QCOMPARE(item->offset(), QPointF());
        QCOMPARE(item->zValue(), 0.0);
        QCOMPARE(item->transformationMode(), Qt::FastTransformation);
        QCOMPARE(item->parentItem(), nullptr);
    }

    void bodyIsOnTheScreen()
    {
        KELDialogBase dialog;
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        const QImage shown = dialog.grab().toImage();
        QCOMPARE(shown.size(), QSize(400, 250));
        // The middle of each field: the view scales its scene down by less than 4 px.
        for (int row = 0; row < fieldsPerSide; ++row) {
            for (int column = 0; column < fieldsPerSide; ++column)
                QCOMPARE(shown.pixelColor(40 * column + 20, 25 * row + 12),
                         QColor(25 * column, 25 * row, 128));
        }
    }

    void worksWithoutResource_data() { addConstructors(); }

    void worksWithoutResource()
    {
        QFETCH(Constructor, constructor);
        QFETCH(QRect, geometry);
        const WithoutResource withoutResource;
        const auto dialog = make(constructor);
        QCOMPARE(dialog->geometry(), geometry);
        QVERIFY(body(*dialog));
        QVERIFY(body(*dialog)->pixmap().isNull());
        dialog->setBackgroundPixmap(filled(QSize(30, 20), Qt::red));
        QVERIFY(body(*dialog));
        QCOMPARE(body(*dialog)->pixmap().size(), QSize(30, 20));
    }

    void pixmapReplacesTheBody()
    {
        KELDialogBase dialog;
        dialog.setBackgroundPixmap(filled(QSize(30, 20), Qt::red));
        QCOMPARE(dialog.view()->scene()->items().size(), 1);
        QVERIFY(body(dialog));
        QCOMPARE(KelImage::difference(picture(body(dialog)->pixmap()),
                                      picture(filled(QSize(30, 20), Qt::red))),
                 QString());
    }

    void pixmapIsUsedAsGiven_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::newRow("one pixel") << QSize(1, 1);
        QTest::newRow("small") << QSize(30, 20);
        QTest::newRow("as large as the view") << QSize(400, 250);
        QTest::newRow("larger than the view") << QSize(900, 700);
    }

    void pixmapIsUsedAsGiven()
    {
        QFETCH(QSize, size);
        KELDialogBase dialog;
        const QPixmap pixmap = filled(size, QColor(1, 2, 3, 100));
        dialog.setBackgroundPixmap(pixmap);
        const QGraphicsPixmapItem *item = body(dialog);
        QVERIFY(item);
        QCOMPARE(item->pixmap().cacheKey(), pixmap.cacheKey());
        QCOMPARE(item->pos(), QPointF());
        QCOMPARE(item->offset(), QPointF());
        QCOMPARE(item->scenePos(), QPointF());
        QVERIFY(item->sceneTransform().isIdentity());
        QCOMPARE(item->zValue(), 0.0);
        QCOMPARE(item->transformationMode(), Qt::FastTransformation);
        QCOMPARE(dialog.geometry(), QRect(200, 186, 400, 250));
        QCOMPARE(dialog.view()->geometry(), QRect(0, 0, 400, 250));
    }

    void nullPixmapLeavesAnEmptyBody()
    {
        KELDialogBase dialog;
        dialog.setBackgroundPixmap(QPixmap());
        QCOMPARE(dialog.view()->scene()->items().size(), 1);
        QVERIFY(body(dialog));
        QVERIFY(body(dialog)->pixmap().isNull());
        dialog.setBackgroundPixmap(filled(QSize(30, 20), Qt::red));
        QCOMPARE(dialog.view()->scene()->items().size(), 1);
    }

    void pixmapComesAboveEarlierItems()
    {
        KELDialogBase dialog;
        KELPushButton *const button = addButton(dialog);
        KELPushButton *const later = addButton(dialog);
        dialog.setBackgroundPixmap(filled(QSize(30, 20), Qt::red));
        QCOMPARE(itemsAt(dialog, QPointF(10, 10)),
                 QList<QGraphicsItem *>({button, later, body(dialog)}));
    }

    void pressPassesThePixmap()
    {
        KELDialogBase dialog;
        const KELPushButton *button = addButton(dialog);
        dialog.setBackgroundPixmap(filled(QSize(30, 20), Qt::red));
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        const QSignalSpy clicked(button, &KELPushButton::mouseClicked);
        const QPoint pos = dialog.view()->mapFromScene(QPointF(10, 10));
        QCOMPARE(dialog.view()->itemAt(pos), body(dialog));
        QTest::mouseClick(dialog.view()->viewport(), Qt::LeftButton, Qt::NoModifier, pos);
        QCOMPARE(clicked.count(), 1);
    }

    void pixmapStaysBelowLaterItems()
    {
        KELDialogBase dialog;
        dialog.setBackgroundPixmap(filled(QSize(30, 20), Qt::red));
        KELPushButton *const button = addButton(dialog);
        QCOMPARE(itemsAt(dialog, QPointF(10, 10)), QList<QGraphicsItem *>({body(dialog), button}));
    }

    void pixmapReplacesTheLastOne()
    {
        KELDialogBase dialog;
        for (int width = 1; width <= 5; ++width) {
            dialog.setBackgroundPixmap(filled(QSize(width, 1), Qt::red));
            QVERIFY(body(dialog));
            QCOMPARE(body(dialog)->pixmap().width(), width);
        }
    }

    void pixmapIsACopy()
    {
        KELDialogBase dialog;
        QPixmap pixmap = filled(QSize(30, 20), Qt::red);
        dialog.setBackgroundPixmap(pixmap);
        pixmap.fill(Qt::green);
        QCOMPARE(body(dialog)->pixmap().toImage().pixelColor(0, 0), QColor(Qt::red));
        // The body's own pixmap may be given again.
        dialog.setBackgroundPixmap(body(dialog)->pixmap());
        QCOMPARE(body(dialog)->pixmap().toImage().pixelColor(0, 0), QColor(Qt::red));
    }

    void pixmapAfterTheBodyWasDeleted_data()
    {
        QTest::addColumn<Deleted>("deleted");
        QTest::newRow("by the application") << Deleted::ByApplication;
        QTest::newRow("with all items of the scene") << Deleted::WithTheScene;
        QTest::newRow("by setContent()") << Deleted::BySetContent;
        QTest::newRow("twice") << Deleted::Twice;
    }

    void pixmapAfterTheBodyWasDeleted()
    {
        QFETCH(Deleted, deleted);
        KELDialogBase dialog;
        int others = 0;
        if (deleted == Deleted::BySetContent) {
            dialog.view()->setContent(new KELPushButton);
            others = 1;
        } else if (deleted == Deleted::WithTheScene) {
            dialog.view()->scene()->clear();
        } else {
            delete body(dialog);
        }
        QCOMPARE(dialog.view()->scene()->items().size(), others);
        if (deleted == Deleted::Twice) {
            dialog.setBackgroundPixmap(filled(QSize(10, 10), Qt::red));
            delete body(dialog);
        }
        dialog.setBackgroundPixmap(filled(QSize(30, 20), Qt::red));
        QVERIFY(body(dialog));
        QCOMPARE(body(dialog)->pixmap().size(), QSize(30, 20));
        QCOMPARE(dialog.view()->scene()->items().size(), others + 1);
        dialog.setBackgroundPixmap(filled(QSize(40, 20), Qt::red));
        QVERIFY(body(dialog));
        QCOMPARE(dialog.view()->scene()->items().size(), others + 1);
    }

    void pixmapAfterTheBodyMovedToAnotherScene()
    {
        KELDialogBase dialog;
        QGraphicsScene other;
        other.addItem(body(dialog));
        dialog.setBackgroundPixmap(filled(QSize(30, 20), Qt::red));
        QCOMPARE(other.items().size(), 0);
        QVERIFY(body(dialog));
    }

    void pixmapForAnotherScene()
    {
        KELDialogBase dialog;
        const QGraphicsScene *const first = dialog.view()->scene();
        QGraphicsScene other;
        dialog.view()->setScene(&other);
        dialog.setBackgroundPixmap(filled(QSize(30, 20), Qt::red));
        QCOMPARE(first->items().size(), 0);
        QCOMPARE(other.items().size(), 1);
    }

    void pixmapWithoutScene()
    {
        KELDialogBase dialog;
        delete dialog.view()->scene();
        dialog.setBackgroundPixmap(filled(QSize(30, 20), Qt::red));
        QCOMPARE(dialog.view()->scene(), nullptr);
    }

    void worksWithoutItsView()
    {
        KELDialogBase dialog;
        delete dialog.view();
        QCOMPARE(dialog.view(), nullptr);
        dialog.setBackgroundPixmap(filled(QSize(30, 20), Qt::red));
        QCOMPARE(dialog.view(), nullptr);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        dialog.dialogShake(5);
        QCOMPARE(dialog.geometry(), QRect(200, 186, 400, 250));
    }

    void viewTakenOutOutlivesTheDialog()
    {
        auto dialog = std::make_unique<KELDialogBase>();
        const std::unique_ptr<KELContentView> view(dialog->view());
        view->setParent(nullptr);
        dialog->setBackgroundPixmap(filled(QSize(30, 20), Qt::red));
        QCOMPARE(dialog->view(), view.get());
        dialog.reset();
        QCOMPARE(bodies(view->scene()).size(), 1);
    }

    void bodyTakenOutOutlivesTheDialog()
    {
        auto dialog = std::make_unique<KELDialogBase>();
        const std::unique_ptr<QGraphicsPixmapItem> item(body(*dialog));
        dialog->view()->scene()->removeItem(item.get());
        dialog.reset();
        QCOMPARE(item->pixmap().size(), QSize(400, 250));
    }

    void itemsOnTheOldBodyDie()
    {
        KELDialogBase dialog;
        auto *child = new KELPushButton;
        child->setParentItem(body(dialog));
        auto *sibling = new KELPushButton;
        dialog.view()->scene()->addItem(sibling);
        const QSignalSpy childDied(child, &QObject::destroyed);
        const QSignalSpy siblingDied(sibling, &QObject::destroyed);
        dialog.setBackgroundPixmap(filled(QSize(30, 20), Qt::red));
        QCOMPARE(childDied.count(), 1);
        QCOMPARE(siblingDied.count(), 0);
    }

    void itemOnTheOldBodySetsAnotherPixmap()
    {
        KELDialogBase dialog;
        auto *child = new KELPushButton;
        child->setParentItem(body(dialog));
        connect(child, &QObject::destroyed, &dialog,
                [&] { dialog.setBackgroundPixmap(filled(QSize(40, 10), Qt::green)); });
        dialog.setBackgroundPixmap(filled(QSize(30, 20), Qt::red));
        QCOMPARE(dialog.view()->scene()->items().size(), 1);
        QVERIFY(body(dialog));
        QCOMPARE(body(dialog)->pixmap().size(), QSize(30, 20));
        dialog.setBackgroundPixmap(filled(QSize(50, 10), Qt::blue));
        QCOMPARE(dialog.view()->scene()->items().size(), 1);
    }

    void itemOnTheOldBodyDeletesTheDialog()
    {
        auto *dialog = new KELDialogBase;
        const QPointer<KELDialogBase> alive(dialog);
        auto *child = new KELPushButton;
        child->setParentItem(body(*dialog));
        connect(child, &QObject::destroyed, this, [=] { delete dialog; });
        dialog->setBackgroundPixmap(filled(QSize(30, 20), Qt::red));
        QVERIFY(!alive);
    }

    void itemOnTheOldBodyDeletesTheView()
    {
        KELDialogBase dialog;
        auto *child = new KELPushButton;
        child->setParentItem(body(dialog));
        connect(child, &QObject::destroyed, this, [&] { delete dialog.view(); });
        dialog.setBackgroundPixmap(filled(QSize(30, 20), Qt::red));
        QCOMPARE(dialog.view(), nullptr);
    }

    void signalOfTheSceneDeletes_data()
    {
        QTest::addColumn<int>("victim");
        QTest::newRow("the dialog") << 0;
        QTest::newRow("the view") << 1;
        QTest::newRow("the scene") << 2;
    }

    void signalOfTheSceneDeletes()
    {
        QFETCH(int, victim);
        const QPointer<KELDialogBase> dialog(new KELDialogBase);
        QGraphicsScene *const scene = dialog->view()->scene();
        auto *child = new KELPushButton;
        child->setParentItem(body(*dialog));
        child->setSelected(true);
        const QObject context;
        connect(scene, &QGraphicsScene::selectionChanged, &context, [&] {
            if (victim == 0)
                delete dialog;
            else if (victim == 1)
                delete dialog->view();
            else
                delete scene;
        });
        dialog->setBackgroundPixmap(filled(QSize(30, 20), Qt::red));
        QCOMPARE(dialog.isNull(), victim == 0);
        delete dialog;
    }

    void itemOfADyingDialogAsksIt()
    {
        auto *dialog = new KELDialogBase;
        auto *onBody = new KELPushButton;
        onBody->setParentItem(body(*dialog));
        auto *onScene = new KELPushButton;
        dialog->view()->scene()->addItem(onScene);
        int asked = 0;
        const auto ask = [&] {
            ++asked;
            QCOMPARE(dialog->view(), nullptr);
            dialog->setBackgroundPixmap(filled(QSize(30, 20), Qt::red));
        };
        connect(onBody, &QObject::destroyed, this, ask);
        connect(onScene, &QObject::destroyed, this, ask);
        delete dialog;
        QCOMPARE(asked, 2);
    }

    void dialogDeletesEverything_data() { addConstructors(); }

    void dialogDeletesEverything()
    {
        QFETCH(Constructor, constructor);
        auto dialog = make(constructor);
        auto *button = new KELPushButton;
        dialog->view()->scene()->addItem(button);
        const QPointer<KELContentView> view(dialog->view());
        const QPointer<QGraphicsScene> scene(dialog->view()->scene());
        const QPointer<KELPushButton> control(button);
        dialog.reset();
        QVERIFY(!view);
        QVERIFY(!scene);
        QVERIFY(!control);
    }

    void dialogDiesWithItsParent()
    {
        auto parent = std::make_unique<QWidget>();
        const QPointer<KELDialogBase> dialog(new KELDialogBase(parent.get()));
        const QPointer<KELContentView> view(dialog->view());
        parent->show();
        dialog->show();
        QVERIFY(dialog->isVisible());
        parent.reset();
        QVERIFY(!dialog);
        QVERIFY(!view);
    }

    void buttonAcceptsAModalDialog()
    {
        KELDialogBase dialog;
        auto *ok = new KELPushButton;
        ok->setboundRect(QRectF(150, 180, 100, 50));
        dialog.view()->scene()->addItem(ok);
        connect(ok, &KELPushButton::mouseClicked, &dialog, &QDialog::accept);
        bool wasModal = false;
        QTimer::singleShot(0, &dialog, [&] {
            wasModal = dialog.isModal();
            tap(&dialog, ok);
        });
        QCOMPARE(dialog.exec(), int(QDialog::Accepted));
        QVERIFY(wasModal);
        QVERIFY(dialog.isHidden());
        QVERIFY(body(dialog));
    }

    void buttonDeletesTheDialogLater()
    {
        const QPointer<KELDialogBase> dialog(new KELDialogBase);
        dialog->setAttribute(Qt::WA_DeleteOnClose);
        auto *cancel = new KELPushButton;
        cancel->setboundRect(QRectF(150, 180, 100, 50));
        dialog->view()->scene()->addItem(cancel);
        connect(cancel, &KELPushButton::mouseClicked, dialog.data(), &QDialog::reject);
        dialog->open();
        QVERIFY(QTest::qWaitForWindowExposed(dialog));
        tap(dialog, cancel);
        QTRY_VERIFY(!dialog);
    }
};

KEL_TEST_MAIN(tst_KELDialogBase)
#include "tst_keldialogbase.moc"
