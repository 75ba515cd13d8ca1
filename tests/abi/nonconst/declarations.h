// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef KEL_NONCONST_DECLARATIONS_H
#define KEL_NONCONST_DECLARATIONS_H

/*
 * The public classes as a program may have declared them: queries that change nothing, but are not
 * const. It asks the library for names that the public headers do not give.
 *
 * Written by hand, and in place of the public headers: never include both. Sizes, bases and the
 * order of virtual functions are those of the library; moc must not see these classes, whose
 * meta-objects the library has.
 */

#include <QtCore/QList>
#include <QtCore/QMarginsF>
#include <QtCore/QMetaEnum>
#include <QtCore/QVariant>
#include <QtGui/QBrush>
#include <QtGui/QFont>
#include <QtGui/QPixmap>
#include <QtWidgets/QDialog>
#include <QtWidgets/QGraphicsObject>
#include <QtWidgets/QGraphicsView>

#include <functional>

#define KEL_DECLARE_META_OBJECT                   \
  public:                                         \
  static const QMetaObject staticMetaObject;      \
  const QMetaObject *metaObject() const override; \
  void *qt_metacast(const char *name) override;   \
  int qt_metacall(QMetaObject::Call call, int id, void **) override

class KELIconFont
{
public:
    KELIconFont();
    KELIconFont(unsigned short code);

    void setIcon(const QChar &icon);
    QChar getIcon();
    operator QChar();
    operator QString();
    bool isNull();
    void setPixelSize(int pixelSize);
    void drawIcon(QPainter *painter, const QRectF &rect, int flags);

    static QFont iconFont();
    static QString fontFamily();
    static void installFont(const QString &path);
    static QString g_fontFamily;

private:
    QChar m_glyph;
    QFont m_font;
};

struct KELRoundRectControlStyle
{
    QRectF boundRect = QRectF();
    QBrush backgroundBrush = QBrush(Qt::NoBrush);
    QBrush foregroundBrush = QBrush(Qt::NoBrush);
    QBrush borderBrush = QBrush(Qt::NoBrush);
    float borderWidth;
    qreal xRadius = 0;
    qreal yRadius = 0;
    QString text = QString();
    int textFlags;
    bool trimText;
    QFont font = QFont();
    QMenu *contextMenu;
    QMarginsF margins = QMarginsF();
    QPixmap pixmap = QPixmap();
    KELIconFont icon = KELIconFont();
    int iconSize;
    bool isMouseDown = false;
    bool isCheck = false;

    void copy(KELRoundRectControlStyle *dst);
    QString getTrimmingText(const QString &text, double width, const QFont &font);
};

struct KELPushButtonStyle : public KELRoundRectControlStyle
{
    QMarginsF iconMargins = QMarginsF();
};

struct KELCheckBoxStyle : public KELRoundRectControlStyle
{
    QBrush indicatorBrush = QBrush();
};

struct KELNavigationTableStyle : public KELRoundRectControlStyle
{
    QString title = QString();
    QBrush titleBackgroundBrush = QBrush();
    QBrush titleForegroundBrush = QBrush();
    float titleHeight;
    float tabHeight;
    bool showTitle;
};

struct KELNavigationTableItemStyle : public KELRoundRectControlStyle
{
    QBrush buttonBackground = QBrush();
    QBrush buttonForeground = QBrush();
};

class KELRoundRectControl : public QGraphicsObject
{
    KEL_DECLARE_META_OBJECT;

    explicit KELRoundRectControl(QGraphicsObject *parent = nullptr);
    ~KELRoundRectControl() override;

    void timerEvent(QTimerEvent *event) override;
    QRectF boundingRect() const override;
    virtual void setboundRect(const QRectF &rect);
    virtual void setboundRect(qreal x, qreal y, qreal w, qreal h);
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *styleOption,
               QWidget *widget = nullptr) override;
    void mousePressEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseDoubleClickEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseReleaseEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseMoveEvent(QGraphicsSceneMouseEvent *event) override;
    void hoverEnterEvent(QGraphicsSceneHoverEvent *event) override;
    void hoverLeaveEvent(QGraphicsSceneHoverEvent *event) override;
    void contextMenuEvent(QGraphicsSceneContextMenuEvent *event) override;
    virtual void onCheckedEvent(bool check);
    virtual KELRoundRectControlStyle *initStyle();

    void initStyleOption(KELRoundRectControlStyle *option,
                         const QStyleOptionGraphicsItem *styleOption);
    KELRoundRectControlStyle *style();
    QRectF rect() const;
    bool isMouseDown();
    bool isCheck();
    QString text();
    void setCheck(bool check);
    void setText(QString text);

    void mouseClicked();
    void mousePress(const QPointF &pos);

protected:
    KELRoundRectControlStyle *m_style;

private:
    void *m_private;
};

class KELPushButton : public KELRoundRectControl
{
    KEL_DECLARE_META_OBJECT;

    explicit KELPushButton(QGraphicsObject *parent = nullptr);
    ~KELPushButton() override;

    void paint(QPainter *painter, const QStyleOptionGraphicsItem *styleOption,
               QWidget *widget = nullptr) override;
    KELPushButtonStyle *initStyle() override;
    bool sceneEventFilter(QGraphicsItem *watched, QEvent *event) override;
    void initStyleOption(KELPushButtonStyle *option, const QStyleOptionGraphicsItem *styleOption);

private:
    std::function<void(KELPushButtonStyle &)> m_templates[3];
};

class KELCheckBox : public KELRoundRectControl
{
    KEL_DECLARE_META_OBJECT;

    explicit KELCheckBox(QGraphicsObject *parent = nullptr);
    ~KELCheckBox() override;

    void paint(QPainter *painter, const QStyleOptionGraphicsItem *styleOption,
               QWidget *widget = nullptr) override;
    void mousePressEvent(QGraphicsSceneMouseEvent *event) override;
    void onCheckedEvent(bool check) override;
    KELRoundRectControlStyle *initStyle() override;
    void initStyleOption(KELCheckBoxStyle *option, const QStyleOptionGraphicsItem *styleOption);

private:
    void *m_private;
};

class KELComboBoxItem : public KELPushButton
{
    KEL_DECLARE_META_OBJECT;

    explicit KELComboBoxItem(QGraphicsObject *parent = nullptr);
    ~KELComboBoxItem() override;

    void setboundRect(const QRectF &rect) override;
    void setboundRect(qreal x, qreal y, qreal w, qreal h) override;
    KELPushButtonStyle *initStyle() override;
    QString display();
    void setDisplay(QString display);
    QVariant value();
    void setValue(QVariant value);

private:
    void *m_private;
};

class KELComboBox : public KELRoundRectControl
{
    KEL_DECLARE_META_OBJECT;

    explicit KELComboBox(QGraphicsObject *parent = nullptr);
    ~KELComboBox() override;

    void setboundRect(const QRectF &rect) override;
    void setboundRect(qreal x, qreal y, qreal w, qreal h) override;
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *styleOption,
               QWidget *widget = nullptr) override;
    KELRoundRectControlStyle *initStyle() override;
    void addItem(QVariant value, QString display);
    void setSelectIndex(int index);
    int selectIndex();
    KELComboBoxItem *selectedItem();
    QList<KELComboBoxItem *> items();

private:
    void *m_private;
};

class KELNavigationTableItem : public KELRoundRectControl
{
    KEL_DECLARE_META_OBJECT;

    explicit KELNavigationTableItem(QGraphicsObject *parent = nullptr);
    ~KELNavigationTableItem() override;

    void paint(QPainter *painter, const QStyleOptionGraphicsItem *styleOption,
               QWidget *widget = nullptr) override;
    KELRoundRectControlStyle *initStyle() override;

private:
    void *m_private;
};

class KELNavigationTable : public KELRoundRectControl
{
    KEL_DECLARE_META_OBJECT;

    explicit KELNavigationTable(QGraphicsObject *parent = nullptr);
    ~KELNavigationTable() override;

    void paint(QPainter *painter, const QStyleOptionGraphicsItem *styleOption,
               QWidget *widget = nullptr) override;
    void mousePressEvent(QGraphicsSceneMouseEvent *event) override;
    KELRoundRectControlStyle *initStyle() override;
    bool sceneEventFilter(QGraphicsItem *watched, QEvent *event) override;
    void addItem(KELNavigationTableItem *item);
    void setSelectIndex(int index);
    KELNavigationTableItem *selectItem();
    int selectIndex();
    void initStyleOption(KELNavigationTableStyle *option,
                         const QStyleOptionGraphicsItem *styleOption);

private:
    void *m_private;
};

class KELContentView : public QGraphicsView
{
    KEL_DECLARE_META_OBJECT;

    explicit KELContentView(QWidget *parent = nullptr);
    ~KELContentView() override;

    void setContent(KELRoundRectControl *control);
    KELRoundRectControl *content();

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void *m_private;
};

class KELSideMenu : public QGraphicsView
{
    KEL_DECLARE_META_OBJECT;

    enum OrientationMode : int { Horizontal = 0, Vertical = 1 };

    explicit KELSideMenu(QWidget *parent = nullptr);
    ~KELSideMenu() override;

    void setOrientation(KELSideMenu::OrientationMode orientation);
    OrientationMode orientation();
    void setBorderWidth(float width);
    float borderWidth();
    void setSpace(float space);
    float space();

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void *m_private;
};

class KELDialogBase : public QDialog
{
    KEL_DECLARE_META_OBJECT;

    explicit KELDialogBase(QWidget *parent = nullptr);
    ~KELDialogBase() override;

    KELContentView *view();

private:
    void *m_private;
};

class KELNonModalhelper : public QObject
{
    KEL_DECLARE_META_OBJECT;

    enum TriggerSource : int { TriggerNone = 0, TriggerParent = 1, TriggerScreen = 2 };

    explicit KELNonModalhelper(QWidget *widget);
    ~KELNonModalhelper() override;

    void setTriggerSource(TriggerSource source);
    TriggerSource triggerSource();
    void enableTime(int ms);
    bool isTimeEnable();

protected:
    void timerEvent(QTimerEvent *event) override;

private:
    void *m_private;
};

class KELNonModalDialog : public KELContentView
{
    KEL_DECLARE_META_OBJECT;

    explicit KELNonModalDialog(QWidget *parent = nullptr);
    ~KELNonModalDialog() override;

    void setTriggerSource(KELNonModalhelper::TriggerSource source);
    KELNonModalhelper::TriggerSource triggerSource();

protected:
    void showEvent(QShowEvent *event) override;

private:
    void *m_private;
};

QT_WARNING_PUSH
QT_WARNING_DISABLE_GCC("-Wnon-virtual-dtor")

class IKELValueConverter
{
public:
    enum ValueConverterType : int { CustomConverterType = 0, DefaultConverterType = 1 };

    virtual QVariant Convert(QObject *object, const QVariant &value) = 0;
    virtual QVariant ConvertBack(QObject *object, const QVariant &value) = 0;
    bool operator==(ValueConverterType t);

    ValueConverterType type;

protected:
    ~IKELValueConverter() = default;
};

class KELDefaultValueConverter : public IKELValueConverter
{
public:
    KELDefaultValueConverter();

    QVariant Convert(QObject *object, const QVariant &value) override;
    QVariant ConvertBack(QObject *object, const QVariant &value) override;
};

QT_WARNING_POP

class KELDataBind : public QObject
{
    KEL_DECLARE_META_OBJECT;

    enum BindMode : int { Auto = 0, Manual = 1, OneWay = 2, TwoWay = 3, OneWayToSource = 4 };

    explicit KELDataBind(QObject *parent = nullptr);
    ~KELDataBind() override;

    void setBind(QObject *src, const char *srcProperty, QObject *dst, const char *dstProperty,
                 BindMode mode, IKELValueConverter *converter = nullptr);
    BindMode bindMode();
    bool hasError();

private:
    void *m_private;
};

#endif
