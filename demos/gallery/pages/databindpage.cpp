// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "databindpage.h"

#include "code/code.h"
#include "eventlog.h"

#include <KELLabel>
#include <KELProcessBar>
#include <KELPushButton>
#include <KELRadioBox>
#include <KELSlideControl>
#include <QtWidgets/QGraphicsLinearLayout>

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

constexpr qreal barPx = 30;
constexpr int stateLines = 4;

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
    CardPage(pageHost, area, QStringLiteral("Data bind"),
             QStringLiteral("A slider, the source, bound to a model, the destination")),
    m_binding(new KELDataBind(this)),
    m_modes(new KELRadioBoxGroup(this))
{
    addObjects();
    addCalls();
    addModes();
    const int level = remembered(QStringLiteral("level"), firstLevel);
    makeModel(level);
    m_slider->setValue(float(level));
    // Watched before the binding listens: the log shows who moved whom.
    host.log->watch(m_slider, QStringLiteral("Slider"));
    bindAsSelected();
    refresh();
}

void DataBindPage::addModes()
{
    QGraphicsLinearLayout *card = newCard(QStringLiteral("The mode that is asked for"));
    card->setSpacing(0);
    for (int mode = 0; mode < modeCount; ++mode) {
        auto *box = new KELRadioBox;
        box->setObjectName(QStringLiteral("mode-%1").arg(mode));
        m_modes->addRadioBox(box, mode);
        const KELLabel *caption = addChoice(card, box, nameOf(mode));
        connect(caption, &KELLabel::mousePress, m_modes, [this, mode] { m_modes->setId(mode); });
    }
    m_modes->setId(remembered(QStringLiteral("mode"), KELDataBind::TwoWay));
    host.log->watch(m_modes, QStringLiteral("Mode"));
    connect(m_modes, &KELRadioBoxGroup::idChanged, this, [this] {
        remembered(QStringLiteral("mode")) = m_modes->id();
        bindAnew();
    });
}

void DataBindPage::addObjects()
{
    QGraphicsLinearLayout *card = newCard(QStringLiteral("Slider"));
    m_slider = new KELSlideControl;
    m_slider->setObjectName(QStringLiteral("source-slider"));
    // A slider emits for unchanged values, too: with a step it does nothing when its own value
    // comes back.
    m_slider->setStep(step);
    connect(m_slider, &KELSlideControl::valueChanged, this, &DataBindPage::refresh);
    addSamples(card, {{m_slider, QString()}});

    addText(card, QStringLiteral("Model"));
    m_bar = new KELProcessBar;
    m_bar->setObjectName(QStringLiteral("model-bar"));
    m_bar->setAcceptedMouseButtons(Qt::NoButton);
    addSamples(card, {{m_bar, QString(), 0, barPx}});
    KELPushButton *less = newButton(QStringLiteral("Less"), QStringLiteral("model-less"));
    connect(less, &KELPushButton::mouseClicked, this, [this] { changeLevel(-step); });
    KELPushButton *more = newButton(QStringLiteral("More"), QStringLiteral("model-more"));
    connect(more, &KELPushButton::mouseClicked, this, [this] { changeLevel(step); });
    m_deleteButton = newButton(QStringLiteral("Delete model"), QStringLiteral("delete-model"));
    connect(m_deleteButton, &KELPushButton::mouseClicked, this, &DataBindPage::deleteOrMakeModel);
    addSamples(card, {{less, QString()}, {more, QString()}}, 96);
    addSamples(card, {{m_deleteButton, QString()}}, 96);
}

void DataBindPage::addCalls()
{
    QGraphicsLinearLayout *card = newCard(QStringLiteral("What the binding does"));
    m_state = addText(card, QString(), stateLines);
    m_state->setObjectName(QStringLiteral("binding-state"));
    m_state->style()->trimText = false; // long messages go on in a second line
    KELPushButton *bind = newButton(QStringLiteral("Bind"), QStringLiteral("bind"));
    connect(bind, &KELPushButton::mouseClicked, this, [this] {
        call(QStringLiteral("bind()"), [this] {
            m_binding->unbind(); // otherwise every change would be carried once more
            m_binding->bind();
        });
    });
    KELPushButton *unbind = newButton(QStringLiteral("Unbind"), QStringLiteral("unbind"));
    connect(unbind, &KELPushButton::mouseClicked, this,
            [this] { call(QStringLiteral("unbind()"), [this] { m_binding->unbind(); }); });
    KELPushButton *update = newButton(QStringLiteral("Update"), QStringLiteral("update"));
    connect(update, &KELPushButton::mouseClicked, this,
            [this] { call(QStringLiteral("update()"), [this] { m_binding->update(); }); });
    addSamples(card, {{bind, QString()}, {unbind, QString()}, {update, QString()}}, 80);
}

KELPushButton *DataBindPage::newButton(const QString &text, const QString &objectName)
{
    auto *button = new KELPushButton;
    button->setText(text);
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
    Code::bindLevel(m_binding, m_slider, m_model, KELDataBind::BindMode(m_modes->id()));
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
