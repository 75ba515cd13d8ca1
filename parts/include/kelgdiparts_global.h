// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef KELGDIPARTS_GLOBAL_H
#define KELGDIPARTS_GLOBAL_H

#include <kelgdicontrol_version.h>

#include <QtCore/qglobal.h>

/*!
 * \file
 * \brief The export macro of the parts library.
 */

/*!
 * \def KELGDIPARTS_EXPORT
 * \brief Exports a public class of the parts library. All other symbols are hidden.
 */
#if defined(KELGDIPARTS_BUILD)
#  define KELGDIPARTS_EXPORT Q_DECL_EXPORT
#else
#  define KELGDIPARTS_EXPORT Q_DECL_IMPORT
#endif

/*!
 * \def KELGDIPARTS_HIDDEN
 * \brief Keeps a member of an exported final class inside the library: nobody outside can call it.
 */
#define KELGDIPARTS_HIDDEN Q_DECL_HIDDEN

#endif
