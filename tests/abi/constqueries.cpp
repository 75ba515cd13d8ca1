// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

// Compiled, never run: constant objects can be asked.

#include "kelcheckbox.h"
#include "kelcombobox.h"
#include "kelcontentview.h"
#include "keldatabind.h"
#include "keldialogbase.h"
#include "kelnavigationtable.h"
#include "kelnonmodaldialog.h"
#include "kelprocessbar.h"
#include "kelradiobox.h"
#include "kelsidemenu.h"
#include "kelslidecontrol.h"

#include <type_traits>
#include <utility>

#define KEL_CONST_QUERY(Class, call, Result)                                          \
  static_assert(std::is_same_v<decltype(std::declval<const Class &>().call), Result>, \
                #Class "::" #call)

template <typename Style>
Style *option = nullptr;

KEL_CONST_QUERY(IKELValueConverter, operator==(IKELValueConverter::DefaultConverterType), bool);
KEL_CONST_QUERY(KELCheckBox, initStyleOption(option<KELCheckBoxStyle>, nullptr), void);
KEL_CONST_QUERY(KELComboBox, items(), QList<KELComboBoxItem *>);
KEL_CONST_QUERY(KELComboBox, selectIndex(), int);
KEL_CONST_QUERY(KELComboBox, selectedItem(), KELComboBoxItem *);
KEL_CONST_QUERY(KELComboBoxItem, display(), QString);
KEL_CONST_QUERY(KELComboBoxItem, value(), QVariant);
KEL_CONST_QUERY(KELContentView, content(), KELRoundRectControl *);
KEL_CONST_QUERY(KELDataBind, bindMode(), KELDataBind::BindMode);
KEL_CONST_QUERY(KELDataBind, hasError(), bool);
KEL_CONST_QUERY(KELDialogBase, view(), KELContentView *);
KEL_CONST_QUERY(KELIconFont, drawIcon(nullptr, QRectF(), 0), void);
KEL_CONST_QUERY(KELIconFont, getIcon(), QChar);
KEL_CONST_QUERY(KELIconFont, isNull(), bool);
KEL_CONST_QUERY(KELIconFont, operator QChar(), QChar);
KEL_CONST_QUERY(KELIconFont, operator QString(), QString);
KEL_CONST_QUERY(KELNavigationTable, initStyleOption(option<KELNavigationTableStyle>, nullptr),
                void);
KEL_CONST_QUERY(KELNavigationTable, selectIndex(), int);
KEL_CONST_QUERY(KELNavigationTable, selectItem(), KELNavigationTableItem *);
KEL_CONST_QUERY(KELNonModalDialog, triggerSource(), KELNonModalhelper::TriggerSource);
KEL_CONST_QUERY(KELNonModalhelper, isTimeEnable(), bool);
KEL_CONST_QUERY(KELNonModalhelper, triggerSource(), KELNonModalhelper::TriggerSource);
KEL_CONST_QUERY(KELProcessBar, value(), int);
KEL_CONST_QUERY(KELPushButton, initStyleOption(option<KELPushButtonStyle>, nullptr), void);
KEL_CONST_QUERY(KELRadioBoxGroup, id(), int);
KEL_CONST_QUERY(KELRoundRectControl, boundingRect(), QRectF);
KEL_CONST_QUERY(KELRoundRectControl, initStyleOption(option<KELRoundRectControlStyle>, nullptr),
                void);
KEL_CONST_QUERY(KELRoundRectControl, isCheck(), bool);
KEL_CONST_QUERY(KELRoundRectControl, isMouseDown(), bool);
KEL_CONST_QUERY(KELRoundRectControl, rect(), QRectF);
KEL_CONST_QUERY(KELRoundRectControl, style(), KELRoundRectControlStyle *);
KEL_CONST_QUERY(KELRoundRectControl, text(), QString);
KEL_CONST_QUERY(KELRoundRectControlStyle, copy(option<KELRoundRectControlStyle>), void);
KEL_CONST_QUERY(KELRoundRectControlStyle, getTrimmingText(QString(), 0, QFont()), QString);
KEL_CONST_QUERY(KELSideMenu, borderWidth(), float);
KEL_CONST_QUERY(KELSideMenu, orientation(), KELSideMenu::OrientationMode);
KEL_CONST_QUERY(KELSideMenu, space(), float);
KEL_CONST_QUERY(KELSlideControl, maximun(), float);
KEL_CONST_QUERY(KELSlideControl, minimun(), float);
KEL_CONST_QUERY(KELSlideControl, step(), float);
KEL_CONST_QUERY(KELSlideControl, value(), float);
