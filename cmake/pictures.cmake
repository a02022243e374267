# Draws the pictures of the documentation: cmake -DZTEDIT=PROGRAM -DSOURCE=FOLDER -P pictures.cmake
# A row is the picture's name, the scheme, the file and what else ztedit is told.
set(pictures
  "light|Light|examples/pascal/StockLedger.pas|--line|111:12"
  "dark|Dark|examples/js/tile_game.js|--line|135:9"
  "classic|Classic|examples/js/tile_game.js|--line|43:15"
  "wide|Light|docs/images/wide.js|--line|6:2"
  "diagnostics|Light|examples/pascal/StockLedger.pas|--line|142:10|--bookmark|118|--bookmark|135|--diagnostics|examples/compiler.txt")

foreach(picture IN LISTS pictures)
  string(REPLACE "|" ";" arguments "${picture}")
  list(POP_FRONT arguments name scheme file)
  execute_process(
    COMMAND ${ZTEDIT} -style fusion --size 900x560 --scheme ${scheme} --render docs/images/${name}.png
            ${arguments} ${file}
    WORKING_DIRECTORY ${SOURCE}
    COMMAND_ERROR_IS_FATAL ANY)
endforeach()
