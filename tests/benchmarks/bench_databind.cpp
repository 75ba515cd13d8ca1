// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "benchmark.h"

#include <KELDataBind>
#include <QtCore/QCoreApplication>
#include <QtCore/QMetaProperty>
#include <QtCore/QString>
#ifdef KEL_HAVE_QUICK
#  include <QtQml/QQmlComponent>
#  include <QtQml/QQmlContext>
#  include <QtQml/QQmlEngine>
#endif

// One of each kind; no setter emits for an unchanged value.
class Model : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int number READ number WRITE setNumber NOTIFY numberChanged)
    Q_PROPERTY(double level READ level WRITE setLevel NOTIFY levelChanged)
    Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged)

public:
    Model() = default;

    int number() const { return m_number; }
    double level() const { return m_level; }
    QString text() const { return m_text; }
    void setNumber(int number)
    {
        if (m_number == number)
            return;
        m_number = number;
        Q_EMIT numberChanged();
    }
    void setLevel(double level)
    {
        if (!(m_level < level) && !(m_level > level))
            return;
        m_level = level;
        Q_EMIT levelChanged();
    }
    void setText(const QString &text)
    {
        if (m_text == text)
            return;
        m_text = text;
        Q_EMIT textChanged();
    }

Q_SIGNALS:
    void numberChanged();
    void levelChanged();
    void textChanged();

private:
    Q_DISABLE_COPY(Model)

    int m_number = -1;
    double m_level = -1;
    QString m_text;
};

// The properties by type; valueAt() differs from one index to the next.
struct Number
{
    static constexpr const char *type = "int";
    static constexpr const char *name = "number";
    static constexpr const char *qmlHandler = "onNumberChanged";
    static constexpr auto changed = &Model::numberChanged;
    static int read(const Model &model) { return model.number(); }
    static void write(Model *model, int value) { model->setNumber(value); }
    static int valueAt(int index) { return index; }
};

struct Level
{
    static constexpr const char *type = "double";
    static constexpr const char *name = "level";
    static constexpr const char *qmlHandler = "onLevelChanged";
    static constexpr auto changed = &Model::levelChanged;
    static double read(const Model &model) { return model.level(); }
    static void write(Model *model, double value) { model->setLevel(value); }
    static double valueAt(int index) { return index * 0.25; }
};

struct Text
{
    static constexpr const char *type = "QString";
    static constexpr const char *name = "text";
    static constexpr const char *qmlHandler = "onTextChanged";
    static constexpr auto changed = &Model::textChanged;
    static QString read(const Model &model) { return model.text(); }
    static void write(Model *model, const QString &value) { model->setText(value); }
    static QString valueAt(int index)
    {
        static const QString texts[] = {QStringLiteral("20 degrees"), QStringLiteral("21 degrees")};
        return texts[index % 2];
    }
};

// Carries a property by meta-properties that were looked up once.
class MetaPropertyCopier : public QObject
{
    Q_OBJECT

public:
    MetaPropertyCopier(Model *from, Model *to, const char *name) : m_from(from), m_to(to)
    {
        const QMetaObject *meta = from->metaObject();
        m_property = meta->property(meta->indexOfProperty(name));
    }

public Q_SLOTS:
    void carry() { m_property.write(m_to, m_property.read(m_from)); }

private:
    Q_DISABLE_COPY(MetaPropertyCopier)

    Model *const m_from;
    Model *const m_to;
    QMetaProperty m_property;
};

// Carries a property by its name.
class NameCopier : public QObject
{
    Q_OBJECT

public:
    NameCopier(Model *from, Model *to, const char *name) : m_from(from), m_to(to), m_name(name) { }

public Q_SLOTS:
    void carry() { m_to->setProperty(m_name, m_from->property(m_name)); }

private:
    Q_DISABLE_COPY(NameCopier)

    Model *const m_from;
    Model *const m_to;
    const char *const m_name;
};

namespace {

const char *const qmlContender = "QML binding";

template <typename Property>
class Scenario
{
public:
    explicit Scenario(bool isTwoWay) :
        m_isTwoWay(isTwoWay),
        m_name(QByteArray(isTwoWay ? "two-way, " : "one-way, ") + Property::type)
    { }

    void run() const
    {
        runTyped();
        runCopier<MetaPropertyCopier>("meta-property looked up once", Benchmark::Role::Reference);
        runDataBind();
        if (Benchmark::isWanted(Benchmark::Role::Other)) {
            runCopier<NameCopier>("property(name), setProperty(name)", Benchmark::Role::Other);
            runQml();
        }
    }

private:
    void runTyped() const
    {
        Model src;
        Model dst;
        connectTyped(&src, &dst);
        if (m_isTwoWay)
            connectTyped(&dst, &src);
        measure("typed lambda", Benchmark::Role::Floor, &src, dst);
    }

    static void connectTyped(Model *from, Model *to)
    {
        QObject::connect(from, Property::changed, to,
                         [from, to] { Property::write(to, Property::read(*from)); });
    }

    template <typename Copier>
    void runCopier(const char *contender, Benchmark::Role role) const
    {
        Model src;
        Model dst;
        Copier forth(&src, &dst, Property::name);
        Copier back(&dst, &src, Property::name);
        QObject::connect(&src, Property::changed, &forth, &Copier::carry);
        if (m_isTwoWay)
            QObject::connect(&dst, Property::changed, &back, &Copier::carry);
        measure(contender, role, &src, dst);
    }

    void runDataBind() const
    {
        Model src;
        Model dst;
        KELDataBind binding;
        binding.setBind(&src, Property::name, &dst, Property::name,
                        m_isTwoWay ? KELDataBind::TwoWay : KELDataBind::OneWay);
        measure("KELDataBind", Benchmark::Role::Library, &src, dst);
    }

#ifdef KEL_HAVE_QUICK
    void runQml() const
    {
        Model src;
        QQmlEngine engine;
        engine.rootContext()->setContextProperty("src", &src);
        QByteArray text = "import KelBenchmark 1.0\nModel { NAME: src.NAME; BACK }";
        text.replace("BACK",
                     m_isTwoWay ? Property::qmlHandler + QByteArray(": src.NAME = NAME") : "");
        text.replace("NAME", Property::name);
        QQmlComponent component(&engine);
        component.setData(text, QUrl());
        Model *dst = qobject_cast<Model *>(component.create());
        if (!dst)
            qFatal("%s", qPrintable(component.errorString()));
        measure(qmlContender, Benchmark::Role::Other, &src, *dst);
        delete dst;
    }
#else
    void runQml() const
    {
        Benchmark::leaveOut(m_name, qmlContender, "Qt Quick is not installed");
    }
#endif

    void measure(const char *contender, Benchmark::Role role, Model *src, const Model &dst) const
    {
        constexpr int usual = 100000;
        Benchmark::measure(m_name, contender, role, usual, [src](int first, int last) {
            for (int i = first; i < last; ++i)
                Property::write(src, Property::valueAt(i));
        });
        // Otherwise nothing was measured.
        if (Property::read(dst) != Property::read(*src))
            qFatal("%s: %s did not carry the value", m_name.constData(), contender);
    }

    const bool m_isTwoWay;
    const QByteArray m_name;
};

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication app(argc, argv);
#ifdef KEL_HAVE_QUICK
    qmlRegisterType<Model>("KelBenchmark", 1, 0, "Model");
#endif
    Benchmark::readArguments(argc, argv);
    for (const bool isTwoWay : {false, true}) {
        Scenario<Number>(isTwoWay).run();
        Scenario<Level>(isTwoWay).run();
        Scenario<Text>(isTwoWay).run();
    }
    return 0;
}

#include "bench_databind.moc"
