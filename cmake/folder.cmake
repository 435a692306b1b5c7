# The delivered folder: the program beside its databases, designs and pictures.
#
# `sample` is made afresh whenever what makes it changes; `Mirav` takes from it only what it
# lacks, so that books kept in it and designs changed in it outlive a build. Tests play in `played`, whose
# books lead to one day whenever they are made.
set(sample ${CMAKE_BINARY_DIR}/sample)
set(played ${CMAKE_BINARY_DIR}/played)
set(delivered ${CMAKE_BINARY_DIR}/Mirav)

add_custom_command(
  OUTPUT ${sample}.stamp
  COMMAND ${CMAKE_COMMAND} -E rm -rf ${sample}
  COMMAND ${CMAKE_COMMAND} -E make_directory ${sample}/FORMATS ${sample}/BILLS ${sample}/pics
  COMMAND mirav_formats ${sample}/FORMATS
  COMMAND mirav_folder ${sample}
  COMMAND mirav_pictures ${sample}
  COMMAND ${CMAKE_COMMAND} -E touch ${sample}.stamp
  DEPENDS mirav_formats mirav_folder mirav_pictures
  COMMENT "Making the sample folder")

add_custom_command(
  OUTPUT ${played}.stamp
  COMMAND ${CMAKE_COMMAND} -E rm -rf ${played}
  COMMAND ${CMAKE_COMMAND} -E make_directory ${played}/BILLS
  COMMAND cp -r ${sample}/FORMATS ${sample}/pics ${played}
  COMMAND mirav_folder ${played} --day 25/11/2026
  COMMAND ${CMAKE_COMMAND} -E touch ${played}.stamp
  DEPENDS ${sample}.stamp mirav_folder
  COMMENT "Making the folder that tests play in")

add_custom_target(folder ALL
  COMMAND ${CMAKE_COMMAND} -E make_directory ${delivered}
  COMMAND cp -rn ${sample}/. ${delivered}
  COMMAND ${CMAKE_COMMAND} -E copy_if_different $<TARGET_FILE:mirav> $<TARGET_FILE:mirav-play> ${delivered}
  DEPENDS ${sample}.stamp ${played}.stamp mirav mirav-play
  COMMENT "Laying the delivered folder")
