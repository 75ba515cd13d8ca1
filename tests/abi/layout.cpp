// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

// Compiled, never run: the order of the fields of the public records is part of the ABI.

#include "kelapplicationnotify.h"
#include "kelcheckbox.h"
#include "kelcombobox.h"
#include "keldatabind.h"
#include "keldialogbase.h"
#include "kellabel.h"
#include "kellineitem.h"
#include "kelnavigationtable.h"
#include "kelnonmodaldialog.h"
#include "kelnonmodalhelper.h"
#include "kelprocessbar.h"
#include "kelpushbutton.h"
#include "kelradiobox.h"
#include "kelroundrectcontrol.h"
#include "kelsidemenu.h"
#include "kelslidecontrol.h"
#include "keltextpixmap.h"

#include <cstddef>
#include <type_traits>

// The records hold Qt values, so offsetof is conditionally supported; both our compilers support
// it.
#pragma GCC diagnostic ignored "-Winvalid-offsetof"

#define KEL_FOLLOWS(Record, before, after) \
  static_assert(offsetof(Record, before) < offsetof(Record, after), #after " follows " #before)

static_assert(offsetof(KELRoundRectControlStyle, boundRect) == 0, "boundRect is the first field");
KEL_FOLLOWS(KELRoundRectControlStyle, boundRect, backgroundBrush);
KEL_FOLLOWS(KELRoundRectControlStyle, backgroundBrush, foregroundBrush);
KEL_FOLLOWS(KELRoundRectControlStyle, foregroundBrush, borderBrush);
KEL_FOLLOWS(KELRoundRectControlStyle, borderBrush, borderWidth);
KEL_FOLLOWS(KELRoundRectControlStyle, borderWidth, xRadius);
KEL_FOLLOWS(KELRoundRectControlStyle, xRadius, yRadius);
KEL_FOLLOWS(KELRoundRectControlStyle, yRadius, text);
KEL_FOLLOWS(KELRoundRectControlStyle, text, textFlags);
KEL_FOLLOWS(KELRoundRectControlStyle, textFlags, trimText);
KEL_FOLLOWS(KELRoundRectControlStyle, trimText, font);
KEL_FOLLOWS(KELRoundRectControlStyle, font, contextMenu);
KEL_FOLLOWS(KELRoundRectControlStyle, contextMenu, margins);
KEL_FOLLOWS(KELRoundRectControlStyle, margins, pixmap);
KEL_FOLLOWS(KELRoundRectControlStyle, pixmap, icon);
KEL_FOLLOWS(KELRoundRectControlStyle, icon, iconSize);
KEL_FOLLOWS(KELRoundRectControlStyle, iconSize, isMouseDown);
KEL_FOLLOWS(KELRoundRectControlStyle, isMouseDown, isCheck);
KEL_FOLLOWS(KELPushButtonStyle, isCheck, iconMargins);
KEL_FOLLOWS(KELCheckBoxStyle, isCheck, indicatorBrush);
KEL_FOLLOWS(KELNavigationTableStyle, isCheck, title);
KEL_FOLLOWS(KELNavigationTableStyle, title, titleBackgroundBrush);
KEL_FOLLOWS(KELNavigationTableStyle, titleBackgroundBrush, titleForegroundBrush);
KEL_FOLLOWS(KELNavigationTableStyle, titleForegroundBrush, titleHeight);
KEL_FOLLOWS(KELNavigationTableStyle, titleHeight, tabHeight);
KEL_FOLLOWS(KELNavigationTableStyle, tabHeight, showTitle);
KEL_FOLLOWS(KELNavigationTableItemStyle, isCheck, buttonBackground);
KEL_FOLLOWS(KELNavigationTableItemStyle, buttonBackground, buttonForeground);

static_assert(std::is_same_v<decltype(KELRoundRectControlStyle::borderWidth), float>,
              "borderWidth is single precision");
static_assert(!std::is_polymorphic_v<KELRoundRectControlStyle>, "records are plain data");
static_assert(!std::is_polymorphic_v<KELCheckBoxStyle>, "records are plain data");
static_assert(!std::is_polymorphic_v<KELNavigationTableStyle>, "records are plain data");
static_assert(!std::is_polymorphic_v<KELNavigationTableItemStyle>, "records are plain data");
static_assert(std::is_same_v<decltype(KELNavigationTableStyle::titleHeight), float>,
              "titleHeight is single precision");
static_assert(std::is_same_v<decltype(KELNavigationTableStyle::tabHeight), float>,
              "tabHeight is single precision");
static_assert(std::is_base_of_v<KELRoundRectControlStyle, KELNavigationTableStyle>,
              "a record starts with its base record");
static_assert(std::is_base_of_v<KELRoundRectControlStyle, KELNavigationTableItemStyle>,
              "a record starts with its base record");
static_assert(!std::is_polymorphic_v<KELIconFont>, "glyphs are plain data");
static_assert(std::is_base_of_v<KELRoundRectControlStyle, KELPushButtonStyle>,
              "a record starts with its base record");
static_assert(std::is_base_of_v<KELRoundRectControlStyle, KELCheckBoxStyle>,
              "a record starts with its base record");
static_assert(sizeof(KELTextPixmap) == sizeof(QPixmap), "a text pixmap adds no member");

template <typename Control>
constexpr bool addsOnlyAPointer = sizeof(Control) == sizeof(KELRoundRectControl) + sizeof(void *);
static_assert(sizeof(KELLabel) == sizeof(KELRoundRectControl), "a label adds no member");
static_assert(addsOnlyAPointer<KELLineItem>, "a line keeps its members in one record");
static_assert(addsOnlyAPointer<KELCheckBox>, "a check box keeps its members in one record");
static_assert(addsOnlyAPointer<KELComboBox>, "a combo box keeps its members in one record");
static_assert(sizeof(KELComboBoxItem) == sizeof(KELPushButton) + sizeof(void *),
              "an entry keeps its members in one record");
static_assert(sizeof(KELRadioBox) == sizeof(KELRoundRectControl),
              "a radio box has no member of its own");
static_assert(addsOnlyAPointer<KELProcessBar>, "a bar keeps its members in one record");
static_assert(addsOnlyAPointer<KELSlideControl>, "a slider keeps its members in one record");
static_assert(addsOnlyAPointer<KELNavigationTable>, "a table keeps its members in one record");
static_assert(addsOnlyAPointer<KELNavigationTableItem>, "a page keeps its members in one record");
static_assert(sizeof(KELSideMenu) == sizeof(QGraphicsView) + sizeof(void *),
              "a side menu keeps its members in one record");
static_assert(sizeof(KELRadioBoxGroup) == sizeof(QObject) + sizeof(void *),
              "a group keeps its members in one record");

static_assert(sizeof(KELDataBind) == sizeof(QObject) + sizeof(void *),
              "a binding keeps its members in one record");
static_assert(
    std::is_polymorphic_v<IKELValueConverter> && !std::has_virtual_destructor_v<IKELValueConverter>,
    "two virtual functions and no destructor among them");
static_assert(sizeof(IKELValueConverter) == 2 * sizeof(void *), "a table and the kind");
static_assert(sizeof(IKELValueConverter::ValueConverterType) == sizeof(int)
                  && sizeof(KELDataBind::BindMode) == sizeof(int),
              "application code passes other values, too");

// The private part is the only member of these classes.
static_assert(sizeof(KELDialogBase) == sizeof(QDialog) + sizeof(void *), "one member");
static_assert(sizeof(KELContentView) == sizeof(QGraphicsView) + sizeof(void *), "one member");
static_assert(sizeof(KELNonModalDialog) == sizeof(KELContentView) + sizeof(void *), "one member");
static_assert(sizeof(KELNonModalhelper) == sizeof(QObject) + sizeof(void *), "one member");
static_assert(KELNonModalhelper::TriggerNone == 0, "part of the ABI");
static_assert(KELNonModalhelper::TriggerParent == 1, "part of the ABI");
static_assert(KELNonModalhelper::TriggerScreen == 2, "part of the ABI");
