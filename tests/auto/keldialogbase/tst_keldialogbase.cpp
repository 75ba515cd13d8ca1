// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "hand.h"
#include "keltest.h"
#include "rows.h"

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

const QRect plainPlace(200, 186, 400, 250);
const QRect shortMessage(185, 210, 430, 180);
const QRect longMessage(185, 155, 430, 290);
const QSize redSize(30, 20);

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

QPixmap filled(const QSize &size, const QColor &colour = Qt::red)
{
    QPixmap pixmap(size);
    pixmap.fill(colour);
    return pixmap;
}

QList<QGraphicsPixmapItem *> bodiesIn(const QGraphicsScene *scene)
{
    QList<QGraphicsPixmapItem *> found;
    const QList<QGraphicsItem *> items = scene->items(Qt::AscendingOrder);
    for (QGraphicsItem *item : items) {
        if (auto *body = qgraphicsitem_cast<QGraphicsPixmapItem *>(item))
            found.append(body);
    }
    return found;
}

class Dialog : public KELDialogBase
{
public:
    using KELDialogBase::KELDialogBase;

    QGraphicsScene *scene() const { return view()->scene(); }
    int itemCount() const { return scene()->items().size(); }
    // The only one, or null.
    QGraphicsPixmapItem *body() const
    {
        const QList<QGraphicsPixmapItem *> found = bodiesIn(scene());
        return found.size() == 1 ? found.constFirst() : nullptr;
    }
    // There is one body, of this size.
    bool hasBody(const QSize &size) const { return body() && body()->pixmap().size() == size; }
    void setRed() { setBackgroundPixmap(filled(redSize)); }

    KELPushButton *add(const QRectF &rect = QRectF(0, 0, 20, 20))
    {
        auto *button = new KELPushButton;
        button->setboundRect(rect);
        scene()->addItem(button);
        return button;
    }
    KELPushButton *addToBody()
    {
        auto *button = new KELPushButton;
        button->setParentItem(body());
        return button;
    }
    // What lies there, from the bottom to the top.
    QList<QGraphicsItem *> itemsAt(const QPointF &pos) const
    {
        return scene()->items(pos, Qt::IntersectsItemBoundingRect, Qt::AscendingOrder);
    }
    void tap(const KELPushButton *button, Input input = Input::Touch)
    {
        const QPointF centre = button->mapToScene(button->boundingRect().center());
        Hand(view()->viewport(), input).tap(view()->mapFromScene(centre));
    }
};

struct Constructor
{
    const char *name;
    std::function<std::unique_ptr<Dialog>(QWidget *)> make;
    QRect place;
};

const std::vector<Constructor> constructors = {
    {"plain", [](QWidget *parent) { return std::make_unique<Dialog>(parent); }, plainPlace},
    {"short message",
     [](QWidget *parent) { return std::make_unique<Dialog>(u"text"_s, 1, parent); }, shortMessage},
    {"long message", [](QWidget *parent) { return std::make_unique<Dialog>(u"text"_s, 3, parent); },
     longMessage},
};

void addConstructors()
{
    addRows({{"constructor", namesOf(constructors)}});
}

const Constructor &constructor()
{
    return constructors[fetch<size_t>("constructor")];
}

enum class Deleted { ByApplication, WithTheScene, BySetContent, Twice };
enum class Victim { Dialog, View, Scene };

} // namespace

class tst_KELDialogBase : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void messageDecidesAboutThePlace_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<double>("size");
        QTest::addColumn<QRect>("place");

        const QString text = u"text"_s;
        const QString empty = u""_s;
        QTest::newRow("at the limit") << text << 2.2 << shortMessage;
        QTest::newRow("just above the limit") << text << 2.2000001 << longMessage;
        QTest::newRow("next number above it") << text << std::nextafter(2.2, 3.0) << longMessage;
        QTest::newRow("next number below it") << text << std::nextafter(2.2, 2.0) << shortMessage;
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
        QFETCH(const QString, text);
        QFETCH(const double, size);
        QFETCH(const QRect, place);
        const Dialog dialog(text, size, nullptr);
        QCOMPARE(dialog.geometry(), place);
        QCOMPARE(dialog.view()->geometry(), QRect(QPoint(0, 0), place.size()));
        // The text is not shown: there is the body and nothing else.
        QCOMPARE(dialog.itemCount(), 1);
        QCOMPARE(dialog.windowTitle(), QString());
    }

    void hasItsPlaceInItsParent_data() { addConstructors(); }

    void hasItsPlaceInItsParent()
    {
        QWidget parent;
        const auto dialog = constructor().make(&parent);
        QCOMPARE(dialog->geometry(), constructor().place);
    }

    void becomesAWindowAboveItsParent()
    {
        QWidget parent;
        Dialog dialog(&parent);
        dialog.setWindowFlags(Qt::Dialog | Qt::FramelessWindowHint);
        QVERIFY(dialog.isWindow());
        QCOMPARE(dialog.size(), plainPlace.size());
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        QCOMPARE(dialog.size(), plainPlace.size());
    }

    void viewBelongsToTheDialog_data() { addConstructors(); }

    void viewBelongsToTheDialog()
    {
        const auto dialog = constructor().make(nullptr);
        QCOMPARE(dialog->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly),
                 QList<QWidget *>({dialog->view()}));
        QVERIFY(!dialog->view()->isWindow());
        QCOMPARE(dialog->view()->geometry(), QRect(QPoint(0, 0), constructor().place.size()));
        QCOMPARE(dialog->view()->content(), nullptr);
        QCOMPARE(dialog->layout(), nullptr);
    }

    void viewKeepsItsSize()
    {
        Dialog dialog;
        dialog.show();
        dialog.resize(500, 300);
        QCoreApplication::processEvents();
        QCOMPARE(dialog.view()->geometry(), QRect(0, 0, 400, 250));
    }

    void opensAtItsPlace()
    {
        Dialog dialog(u"text"_s, 3, nullptr);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        QCOMPARE(dialog.geometry(), longMessage);
        QVERIFY(dialog.view()->isVisible());
        QCOMPARE(dialog.view()->sceneRect(), QRectF(0, 0, 430, 290));
    }

    void bodyIsScaledToTheView_data() { addConstructors(); }

    void bodyIsScaledToTheView()
    {
        const auto dialog = constructor().make(nullptr);
        const QGraphicsPixmapItem *item = dialog->body();
        QVERIFY(item);
        const QImage image = item->pixmap().toImage().convertToFormat(
            QImage::Format_ARGB32_Premultiplied);
        QCOMPARE(KelImage::difference(image, drawnBody(constructor().place.size())), QString());
        QCOMPARE(item->pos(), QPointF());
        QCOMPARE(item->offset(), QPointF());
        QCOMPARE(item->zValue(), 0.0);
        QCOMPARE(item->transformationMode(), Qt::FastTransformation);
        QCOMPARE(item->parentItem(), nullptr);
    }

    void bodyIsOnTheScreen()
    {
        Dialog dialog;
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
        const WithoutResource withoutResource;
        const auto dialog = constructor().make(nullptr);
        QCOMPARE(dialog->geometry(), constructor().place);
        QVERIFY(dialog->hasBody(QSize(0, 0)));
        dialog->setRed();
        QVERIFY(dialog->hasBody(redSize));
    }

    void pixmapIsUsedAsGiven_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::newRow("none") << QSize();
        QTest::newRow("one pixel") << QSize(1, 1);
        QTest::newRow("small") << redSize;
        QTest::newRow("as large as the view") << plainPlace.size();
        QTest::newRow("larger than the view") << QSize(900, 700);
    }

    void pixmapIsUsedAsGiven()
    {
        QFETCH(const QSize, size);
        Dialog dialog;
        const QPixmap pixmap = size.isEmpty() ? QPixmap() : filled(size, QColor(1, 2, 3, 100));
        dialog.setBackgroundPixmap(pixmap);
        QCOMPARE(dialog.itemCount(), 1);
        const QGraphicsPixmapItem *item = dialog.body();
        QVERIFY(item);
        QCOMPARE(item->pixmap().isNull(), size.isEmpty());
        QCOMPARE(item->pixmap().cacheKey(), pixmap.cacheKey());
        QCOMPARE(item->pos(), QPointF());
        QCOMPARE(item->offset(), QPointF());
        QCOMPARE(item->scenePos(), QPointF());
        QVERIFY(item->sceneTransform().isIdentity());
        QCOMPARE(item->zValue(), 0.0);
        QCOMPARE(item->transformationMode(), Qt::FastTransformation);
        QCOMPARE(dialog.geometry(), plainPlace);
        QCOMPARE(dialog.view()->geometry(), QRect(0, 0, 400, 250));
    }

    void pixmapComesAboveEarlierItems()
    {
        Dialog dialog;
        KELPushButton *const button = dialog.add();
        KELPushButton *const later = dialog.add();
        dialog.setRed();
        QCOMPARE(dialog.itemsAt(QPointF(10, 10)),
                 QList<QGraphicsItem *>({button, later, dialog.body()}));
    }

    void pixmapStaysBelowLaterItems()
    {
        Dialog dialog;
        dialog.setRed();
        KELPushButton *const button = dialog.add();
        QCOMPARE(dialog.itemsAt(QPointF(10, 10)), QList<QGraphicsItem *>({dialog.body(), button}));
    }

    void pressPassesThePixmap_data() { addRows({{"input", inputs}}); }

    void pressPassesThePixmap()
    {
        Dialog dialog;
        const KELPushButton *button = dialog.add();
        dialog.setRed();
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        const QSignalSpy clicked(button, &KELPushButton::mouseClicked);
        QCOMPARE(dialog.view()->itemAt(dialog.view()->mapFromScene(QPointF(10, 10))),
                 dialog.body());
        dialog.tap(button, fetch<Input>("input"));
        QCOMPARE(clicked.count(), 1);
    }

    void pixmapReplacesTheLastOne()
    {
        Dialog dialog;
        for (int width = 0; width <= 5; ++width) {
            dialog.setBackgroundPixmap(width > 0 ? filled(QSize(width, 1)) : QPixmap());
            QVERIFY(dialog.hasBody(QSize(width, width > 0 ? 1 : 0)));
            QCOMPARE(dialog.itemCount(), 1);
        }
    }

    void pixmapIsACopy()
    {
        Dialog dialog;
        QPixmap pixmap = filled(redSize);
        dialog.setBackgroundPixmap(pixmap);
        pixmap.fill(Qt::green);
        QCOMPARE(dialog.body()->pixmap().toImage().pixelColor(0, 0), QColor(Qt::red));
        // The body's own pixmap may be given again.
        dialog.setBackgroundPixmap(dialog.body()->pixmap());
        QCOMPARE(dialog.body()->pixmap().toImage().pixelColor(0, 0), QColor(Qt::red));
    }

    void pixmapAfterTheBodyWasDeleted_data()
    {
        addRows({{"deleted",
                  {{"by the application", int(Deleted::ByApplication)},
                   {"with all items of the scene", int(Deleted::WithTheScene)},
                   {"by setContent()", int(Deleted::BySetContent)},
                   {"twice", int(Deleted::Twice)}}}});
    }

    void pixmapAfterTheBodyWasDeleted()
    {
        const auto deleted = fetch<Deleted>("deleted");
        const int others = deleted == Deleted::BySetContent ? 1 : 0;
        Dialog dialog;
        if (deleted == Deleted::BySetContent)
            dialog.view()->setContent(new KELPushButton);
        else if (deleted == Deleted::WithTheScene)
            dialog.scene()->clear();
        else
            delete dialog.body();
        QCOMPARE(dialog.itemCount(), others);
        if (deleted == Deleted::Twice) {
            dialog.setBackgroundPixmap(filled(QSize(10, 10)));
            delete dialog.body();
        }
        for (const QSize &size : {redSize, QSize(40, 20)}) {
            dialog.setBackgroundPixmap(filled(size));
            QVERIFY(dialog.hasBody(size));
            QCOMPARE(dialog.itemCount(), others + 1);
        }
    }

    void pixmapAfterTheBodyMovedToAnotherScene()
    {
        Dialog dialog;
        QGraphicsScene other;
        other.addItem(dialog.body());
        dialog.setRed();
        QCOMPARE(other.items().size(), 0);
        QVERIFY(dialog.body());
    }

    void pixmapForAnotherScene()
    {
        Dialog dialog;
        const QGraphicsScene *const first = dialog.scene();
        QGraphicsScene other;
        dialog.view()->setScene(&other);
        dialog.setRed();
        QCOMPARE(first->items().size(), 0);
        QCOMPARE(other.items().size(), 1);
    }

    void pixmapWithoutScene()
    {
        Dialog dialog;
        delete dialog.scene();
        dialog.setRed();
        QCOMPARE(dialog.scene(), nullptr);
    }

    void worksWithoutItsView()
    {
        Dialog dialog;
        delete dialog.view();
        QCOMPARE(dialog.view(), nullptr);
        dialog.setRed();
        QCOMPARE(dialog.view(), nullptr);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        dialog.dialogShake(5);
        QCOMPARE(dialog.geometry(), plainPlace);
    }

    void viewTakenOutOutlivesTheDialog()
    {
        auto dialog = std::make_unique<Dialog>();
        const std::unique_ptr<KELContentView> view(dialog->view());
        view->setParent(nullptr);
        dialog->setRed();
        QCOMPARE(dialog->view(), view.get());
        dialog.reset();
        QCOMPARE(bodiesIn(view->scene()).size(), 1);
    }

    void bodyTakenOutOutlivesTheDialog()
    {
        auto dialog = std::make_unique<Dialog>();
        const std::unique_ptr<QGraphicsPixmapItem> item(dialog->body());
        dialog->scene()->removeItem(item.get());
        dialog.reset();
        QCOMPARE(item->pixmap().size(), plainPlace.size());
    }

    void itemsOnTheOldBodyDie()
    {
        Dialog dialog;
        const QPointer<KELPushButton> child(dialog.addToBody());
        const QPointer<KELPushButton> sibling(dialog.add());
        dialog.setRed();
        QVERIFY(!child);
        QVERIFY(sibling);
    }

    void itemOnTheOldBodySetsAnotherPixmap()
    {
        Dialog dialog;
        connect(dialog.addToBody(), &QObject::destroyed, &dialog,
                [&] { dialog.setBackgroundPixmap(filled(QSize(40, 10))); });
        for (const QSize &size : {redSize, QSize(50, 10)}) {
            dialog.setBackgroundPixmap(filled(size));
            QCOMPARE(dialog.itemCount(), 1);
            QVERIFY(dialog.hasBody(size));
        }
    }

    void itemOnTheOldBodyDeletes_data()
    {
        addRows(
            {{"victim", {{"the dialog", int(Victim::Dialog)}, {"the view", int(Victim::View)}}}});
    }

    void itemOnTheOldBodyDeletes()
    {
        const bool isDialog = fetch<Victim>("victim") == Victim::Dialog;
        const QPointer<Dialog> dialog(new Dialog);
        const QPointer<KELContentView> view(dialog->view());
        connect(dialog->addToBody(), &QObject::destroyed, this, [&] {
            if (isDialog)
                delete dialog;
            else
                delete dialog->view();
        });
        dialog->setRed();
        QVERIFY(!view);
        QCOMPARE(dialog.isNull(), isDialog);
        QVERIFY(!dialog || !dialog->view());
        delete dialog;
    }

    void signalOfTheSceneDeletes_data()
    {
        addRows({{"victim",
                  {{"the dialog", int(Victim::Dialog)},
                   {"the view", int(Victim::View)},
                   {"the scene", int(Victim::Scene)}}}});
    }

    void signalOfTheSceneDeletes()
    {
        const auto victim = fetch<Victim>("victim");
        const QPointer<Dialog> dialog(new Dialog);
        QGraphicsScene *const scene = dialog->scene();
        dialog->addToBody()->setSelected(true);
        const QObject context;
        connect(scene, &QGraphicsScene::selectionChanged, &context, [&] {
            if (victim == Victim::Dialog)
                delete dialog;
            else if (victim == Victim::View)
                delete dialog->view();
            else
                delete scene;
        });
        dialog->setRed();
        QCOMPARE(dialog.isNull(), victim == Victim::Dialog);
        delete dialog;
    }

    void itemOfADyingDialogAsksIt()
    {
        auto *dialog = new Dialog;
        KELDialogBase *const dying = dialog; // only the base is left then
        int asked = 0;
        for (const KELPushButton *button : {dialog->addToBody(), dialog->add()}) {
            connect(button, &QObject::destroyed, this, [&] {
                ++asked;
                QCOMPARE(dying->view(), nullptr);
                dying->setBackgroundPixmap(filled(redSize));
            });
        }
        delete dialog;
        QCOMPARE(asked, 2);
    }

    void dialogDeletesEverything_data() { addConstructors(); }

    void dialogDeletesEverything()
    {
        auto dialog = constructor().make(nullptr);
        const QPointer<KELPushButton> button(dialog->add());
        const QPointer<KELContentView> view(dialog->view());
        const QPointer<QGraphicsScene> scene(dialog->scene());
        dialog.reset();
        QVERIFY(!view);
        QVERIFY(!scene);
        QVERIFY(!button);
    }

    void dialogDiesWithItsParent()
    {
        auto parent = std::make_unique<QWidget>();
        const QPointer<Dialog> dialog(new Dialog(parent.get()));
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
        Dialog dialog;
        const KELPushButton *ok = dialog.add(QRectF(150, 180, 100, 50));
        connect(ok, &KELPushButton::mouseClicked, &dialog, &QDialog::accept);
        bool wasModal = false;
        QTimer::singleShot(0, &dialog, [&] {
            wasModal = dialog.isModal();
            dialog.tap(ok);
        });
        QCOMPARE(dialog.exec(), int(QDialog::Accepted));
        QVERIFY(wasModal);
        QVERIFY(dialog.isHidden());
        QVERIFY(dialog.body());
    }

    void buttonDeletesTheDialogLater()
    {
        const QPointer<Dialog> dialog(new Dialog);
        dialog->setAttribute(Qt::WA_DeleteOnClose);
        const KELPushButton *cancel = dialog->add(QRectF(150, 180, 100, 50));
        connect(cancel, &KELPushButton::mouseClicked, dialog.data(), &QDialog::reject);
        dialog->open();
        QVERIFY(QTest::qWaitForWindowExposed(dialog));
        dialog->tap(cancel);
        QTRY_VERIFY(!dialog);
    }
};

KEL_TEST_MAIN(tst_KELDialogBase)
#include "tst_keldialogbase.moc"
