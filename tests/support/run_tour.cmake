# A tour in an empty folder must end well and leave a picture of every form and printed labels.
file(REMOVE_RECURSE ${FOLDER})
file(MAKE_DIRECTORY ${FOLDER}/dukkan)
set(ENV{XDG_RUNTIME_DIR} ${FOLDER}) # a lock of its own
execute_process(COMMAND ${TEZGAH} --directory ${FOLDER}/dukkan --tour ${FOLDER}/cikti
    RESULT_VARIABLE result TIMEOUT 300)
if(NOT result EQUAL 0)
    message(FATAL_ERROR "the tour ended with ${result}")
endif()
foreach(form stkkart yazfrm fatura fytdegisbul Baruret Barkod login parametre-1 mesaj kakknd baglan)
    if(NOT EXISTS ${FOLDER}/cikti/${form}.png)
        message(FATAL_ERROR "no picture of ${form}")
    endif()
endforeach()
file(GLOB printed ${FOLDER}/cikti/Etiket-*.pdf)
list(LENGTH printed count)
if(count LESS 6)
    message(FATAL_ERROR "only ${count} label files")
endif()
