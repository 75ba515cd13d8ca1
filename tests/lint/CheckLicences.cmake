# SPDX-FileCopyrightText: 2026 KELGdiControl contributors
# SPDX-License-Identifier: MIT

# cmake -DREUSE=... -DSOURCE=... -DDIRECTORY=... -P CheckLicences.cmake
#
# Every source file names its licence. Looks at a copy without build folders: neither git nor a git
# checkout is needed.

file(REMOVE_RECURSE ${DIRECTORY})
file(GLOB entries RELATIVE ${SOURCE} ${SOURCE}/* ${SOURCE}/.*)
list(REMOVE_ITEM entries . .. .git .cache build compile_commands.json CMakeUserPresets.json)
foreach(entry IN LISTS entries)
    file(COPY ${SOURCE}/${entry} DESTINATION ${DIRECTORY})
endforeach()
execute_process(COMMAND ${REUSE} --root ${DIRECTORY} lint COMMAND_ERROR_IS_FATAL ANY)
