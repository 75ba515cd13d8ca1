// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "databindpage.h"

#include "eventlog.h"
#include "parts.h"

#include <KELDataBind>
#include <KELLabel>
#include <KELProcessBar>
#include <KELRadioBox>
#include <KELSlideControl>

// Stands for what an application would show. A progress bar itself is no destination for numbers:
// its property is a bool.
class LevelModel : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int level READ level WRITE setLevel NOTIFY levelChanged)

public:
    using QObject::QObject;

    int level() const { return m_level; }
    void setLevel(int level)
    {
        // An unchanged value emits nothing: that ends the echo of a two-way binding.
        if (m_level == level)
            return;
        m_level = level;
        Q_EMIT levelChanged();
    }

Q_SIGNALS:
    void levelChanged();

private:
    Q_DISABLE_COPY(LevelModel)

    int m_level = 0;
};

namespace {

constexpr qreal boxPx = 44;
constexpr qreal modesWidthPx = 204;
constexpr qreal captionPx = 52;
constexpr qreal buttonsHeightPx = 2 * Theme::touch + Theme::gap;
constexpr qreal stackedHeightPx = 292;

constexpr int firstLevel = 40;
constexpr int step = 10;

// The index is the KELDataBind::BindMode, and the id in the group.
const char *const modeNames[] = {"Auto", "Manual", "OneWay", "TwoWay", "OneWayToSource"};
constexpr int modeCount = int(std::size(modeNames));

QString nameOf(int mode)
{
    return QLatin1String(modeNames[mode]);
}

QString *caughtLine = nullptr;
QtMessageHandler usualHandler = nullptr;

void catchDebugLine(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    if (type == QtDebugMsg)
        *caughtLine = text;
    else
        usualHandler(type, context, text);
}

// What function printed with qDebug(): a binding has no other way to report.
QString debugLineOf(const std::function<void()> &function)
{
    QString line;
    caughtLine = &line;
    usualHandler = qInstallMessageHandler(catchDebugLine);
    function();
    qInstallMessageHandler(usualHandler);
    return line;
}

} // namespace

DataBindPage::DataBindPage(const PageHost &pageHost, const QRectF &area) :
    Page(pageHost, area, QStringLiteral("Data bind"),
         QStringLiteral("A slider, the source, bound to a model, the destination")),
    m_binding(new KELDataBind(this)),
    m_modes(new KELRadioBoxGroup(this))
{
    const QRectF room = body();
    const QRectF modes = isUpright() ? room.adjusted(0, 0, 0, -stackedHeightPx - Theme::pageMargin)
                                     : QRectF(room.x(), room.y(), modesWidthPx, room.height());
    const QRectF rest = isUpright() ? room.adjusted(0, room.height() - stackedHeightPx, 0, 0)
                                    : room.adjusted(modesWidthPx + Theme::pageMargin, 0, 0, 0);
    const QRectF row(rest.x(), rest.y(), rest.width(), Theme::touch);
    addSlider(row);
    addModelRow(row.translated(0, Theme::touch + Theme::gap));
    addStateCard(
        rest.adjusted(0, 2 * (Theme::touch + Theme::gap), 0, -buttonsHeightPx - Theme::gap));
    addButtons(rest.adjusted(0, rest.height() - buttonsHeightPx, 0, 0));

    const int level = remembered(QStringLiteral("level"), firstLevel);
    makeModel(level);
    m_slider->setValue(float(level));
    // Watched before the binding listens: the log shows who moved whom.
    host.log->watch(m_slider, QStringLiteral("Slider"));
    addModes(Parts::addDarkPanel(this, modes));
    bindAsSelected();
    refresh();
}

void DataBindPage::addModes(KELRoundRectControl *panel)
{
    const QVector<QRectF> rows = Parts::grid(
        panel->rect().adjusted(Theme::gap, Theme::gap, -Theme::gap, -Theme::gap), 1, modeCount, 0);
    for (int mode = 0; mode < modeCount; ++mode) {
        const QRectF &row = rows.at(mode);
        auto *box = new KELRadioBox(panel);
        box->setboundRect(row.x(), row.center().y() - boxPx / 2, boxPx, boxPx);
        box->setObjectName(QStringLiteral("mode-%1").arg(mode));
        m_modes->addRadioBox(box, mode);
        auto *caption = new KELLabel(panel);
        caption->setboundRect(row.adjusted(boxPx + Theme::gap, 0, 0, 0));
        caption->style()->text = nameOf(mode);
        caption->style()->font = Theme::font(Theme::bodyPx);
        caption->style()->textFlags = Qt::AlignLeft | Qt::AlignVCenter;
        connect(caption, &KELLabel::mousePress, m_modes, [this, mode] { m_modes->setId(mode); });
    }
    m_modes->setId(remembered(QStringLiteral("mode"), KELDataBind::TwoWay));
    host.log->watch(m_modes, QStringLiteral("Mode"));
    connect(m_modes, &KELRadioBoxGroup::idChanged, this, [this] {
        remembered(QStringLiteral("mode")) = m_modes->id();
        bindAnew();
    });
}

void DataBindPage::addSlider(const QRectF &row)
{
    Parts::addNote(this, {row.x(), row.y(), captionPx, row.height()}, QStringLiteral("Slider"),
                   Theme::muted, Qt::AlignLeft | Qt::AlignVCenter);
    KELRoundRectControl *panel = Parts::addPanel(this, row.adjusted(captionPx, 0, 0, 0));
    panel->style()->backgroundBrush = panel->style()->borderBrush = QBrush(Qt::NoBrush);
    m_slider = new KELSlideControl(panel);
    m_slider->setboundRect(0, 0, panel->rect().width(), panel->rect().height());
    m_slider->setObjectName(QStringLiteral("source-slider"));
    // A slider emits for unchanged values, too: with a step it does nothing when its own value
    // comes back.
    m_slider->setStep(step);
    connect(m_slider, &KELSlideControl::valueChanged, this, &DataBindPage::refresh);
}

void DataBindPage::addModelRow(const QRectF &row)
{
    Parts::addNote(this, {row.x(), row.y(), captionPx, row.height()}, QStringLiteral("Model"),
                   Theme::muted, Qt::AlignLeft | Qt::AlignVCenter);
    const QRectF rest = row.adjusted(captionPx, 0, 0, 0);
    KELPushButton *less = addLoggedButton({rest.x(), rest.y(), Theme::touch, Theme::touch},
                                          QString::number(-step), QStringLiteral("model-less"));
    connect(less, &KELPushButton::mouseClicked, this, [this] { changeLevel(-step); });
    m_bar = new KELProcessBar(this);
    m_bar->setboundRect(rest.adjusted(Theme::touch + Theme::gap, 0, -Theme::touch - Theme::gap, 0));
    m_bar->setObjectName(QStringLiteral("model-bar"));
    m_bar->setAcceptedMouseButtons(Qt::NoButton);
    KELPushButton *more = addLoggedButton(
        {rest.right() - Theme::touch, rest.y(), Theme::touch, Theme::touch},
        QStringLiteral("+%1").arg(step), QStringLiteral("model-more"));
    connect(more, &KELPushButton::mouseClicked, this, [this] { changeLevel(step); });
}

void DataBindPage::addStateCard(const QRectF &rect)
{
    m_state = Parts::addCard(this, rect);
    m_state->setObjectName(QStringLiteral("binding-state"));
    m_state->style()->font = Theme::font(Theme::smallPx);
    m_state->style()->trimText = false; // long messages go on in a second line
    m_state->style()->margins = QMarginsF(Theme::gap, 0, Theme::gap, 0);
}

void DataBindPage::addButtons(const QRectF &rect)
{
    const QVector<QRectF> cells = Parts::grid(rect, 2, 2);
    KELPushButton *bind = addLoggedButton(cells.at(0), QStringLiteral("Bind"),
                                          QStringLiteral("bind"));
    connect(bind, &KELPushButton::mouseClicked, this, [this] {
        call(QStringLiteral("bind()"), [this] {
            m_binding->unbind(); // for the same reason as in bindAsSelected()
            m_binding->bind();
        });
    });
    KELPushButton *unbind = addLoggedButton(cells.at(1), QStringLiteral("Unbind"),
                                            QStringLiteral("unbind"));
    connect(unbind, &KELPushButton::mouseClicked, this,
            [this] { call(QStringLiteral("unbind()"), [this] { m_binding->unbind(); }); });
    KELPushButton *update = addLoggedButton(cells.at(2), QStringLiteral("Update"),
                                            QStringLiteral("update"));
    connect(update, &KELPushButton::mouseClicked, this,
            [this] { call(QStringLiteral("update()"), [this] { m_binding->update(); }); });
    m_deleteButton = addLoggedButton(cells.at(3), QStringLiteral("Delete model"),
                                     QStringLiteral("delete-model"));
    connect(m_deleteButton, &KELPushButton::mouseClicked, this, &DataBindPage::deleteOrMakeModel);
}

KELPushButton *DataBindPage::addLoggedButton(const QRectF &rect, const QString &text,
                                             const QString &objectName)
{
    KELPushButton *button = Parts::addButton(this, rect, text);
    button->setObjectName(objectName);
    host.log->watch(button, text);
    return button;
}

void DataBindPage::makeModel(int level)
{
    m_model = new LevelModel(this);
    m_model->setLevel(level);
    connect(m_model, &LevelModel::levelChanged, this, [this] {
        host.log->add(QStringLiteral("Model"),
                      QStringLiteral("levelChanged %1").arg(m_model->level()));
        refresh();
    });
}

void DataBindPage::changeLevel(int difference)
{
    if (m_model)
        m_model->setLevel(qBound(0, m_model->level() + difference, 100));
}

void DataBindPage::deleteOrMakeModel()
{
    if (m_model) {
        delete m_model;
        host.log->add(QStringLiteral("Model"), QStringLiteral("deleted"));
        m_lastCall = QStringLiteral("Nothing is carried any more.");
        refresh();
    } else {
        makeModel(firstLevel);
        bindAnew();
    }
    m_deleteButton->setText(m_model ? QStringLiteral("Delete model") : QStringLiteral("New model"));
}

void DataBindPage::bindAsSelected()
{
    m_binding->unbind(); // otherwise every change would be carried once more
    m_binding->setBind(m_slider, "value", m_model, "level", KELDataBind::BindMode(m_modes->id()));
}

void DataBindPage::bindAnew()
{
    call(QStringLiteral("setBind(%1)").arg(nameOf(m_modes->id())), [this] { bindAsSelected(); });
}

void DataBindPage::call(const QString &what, const std::function<void()> &function)
{
    const QString line = debugLineOf(function);
    host.log->add(QStringLiteral("Binding"), line.isEmpty() ? what : line);
    m_lastCall = line.isEmpty() ? what : line;
    refresh();
}

// After every call, too: bind() blocks the model's signals while it writes to it.
void DataBindPage::refresh()
{
    const QString mode = QStringLiteral("Effective mode: %1").arg(nameOf(m_binding->bindMode()));
    const QString slider = QStringLiteral("Slider %1, ").arg(double(m_slider->value()));
    const QString model = m_model ? QStringLiteral("model %1").arg(m_model->level())
                                  : QStringLiteral("model deleted");
    if (m_model) {
        m_bar->setValue(m_model->level());
        remembered(QStringLiteral("level")) = m_model->level();
    }
    m_state->setText(mode + QLatin1Char('\n') + slider + model + QLatin1Char('\n') + m_lastCall);
}

#include "databindpage.moc"
