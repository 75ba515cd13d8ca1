# SPDX-FileCopyrightText: 2026 KELGdiControl contributors
# SPDX-License-Identifier: MIT

# cmake -DBUILD=... -DPREFIX=... -P Install.cmake
#
# Installs into an empty prefix and moves it: what is installed must not know where it was.

file(REMOVE_RECURSE ${PREFIX} ${PREFIX}.first)
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD} --prefix ${PREFIX}.first
    COMMAND_ERROR_IS_FATAL ANY)
file(RENAME ${PREFIX}.first ${PREFIX})
