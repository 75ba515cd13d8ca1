// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef KELGDICONTROL_VERSION_H
#define KELGDICONTROL_VERSION_H

#include <QtCore/qglobal.h>

/*!
 * \file
 * \brief The version of the headers. Every public header includes this one.
 */

/*!
 * \def KELGDI_VERSION_CHECK(major, minor, patch)
 * \brief Turns a version into one number, 0x010203 for 1.2.3, with which the preprocessor can
 * compare KELGDI_VERSION. \a minor and \a patch are at most 255.
 *
 * \code
 * #if KELGDI_VERSION >= KELGDI_VERSION_CHECK(1, 0, 0)
 * \endcode
 */
#define KELGDI_VERSION_CHECK(major, minor, patch) (((major) << 16) | ((minor) << 8) | (patch))

#define KELGDI_VERSION_MAJOR 1 //!< The first number of the version.
#define KELGDI_VERSION_MINOR 0 //!< The second number of the version.
#define KELGDI_VERSION_PATCH 0 //!< The third number of the version.

/*!
 * \def KELGDI_VERSION
 * \brief The version that the application is compiled with, in the form of KELGDI_VERSION_CHECK().
 * The application may run with a later version of the library; see \ref abi.
 */
#define KELGDI_VERSION \
  KELGDI_VERSION_CHECK(KELGDI_VERSION_MAJOR, KELGDI_VERSION_MINOR, KELGDI_VERSION_PATCH)

/*!
 * \def KELGDI_VERSION_STR
 * \brief The same version as a string, "major.minor.patch".
 */
#define KELGDI_VERSION_STR           \
  QT_STRINGIFY(KELGDI_VERSION_MAJOR) \
  "." QT_STRINGIFY(KELGDI_VERSION_MINOR) "." QT_STRINGIFY(KELGDI_VERSION_PATCH)

#endif
