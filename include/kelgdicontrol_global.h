// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef KELGDICONTROL_GLOBAL_H
#define KELGDICONTROL_GLOBAL_H

#include "kelgdicontrol_version.h"

#include <QtCore/qglobal.h>

/*!
 * \file
 * \brief The export macro of the library.
 */

/*!
 * \def KELGDI_EXPORT
 * \brief Exports a public class. All other symbols of the library are hidden.
 */
#if defined(KELGDI_BUILD)
#  define KELGDI_EXPORT Q_DECL_EXPORT
#else
#  define KELGDI_EXPORT Q_DECL_IMPORT
#endif

#endif
