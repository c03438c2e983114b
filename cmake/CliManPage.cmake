# Writes the manual page of trackloom-cli from the tool's own help texts, so
# that the two cannot drift apart: the overview comes from `--help`, and every
# command word found under "Subcommands" gets a section with its own `--help`.
#   cmake -DCLI=path/to/trackloom-cli -DVERSION=x.y.z -DOUTPUT=trackloom-cli.1 -P CliManPage.cmake

function(help_of words result)
  execute_process(COMMAND ${CLI} ${words} --help OUTPUT_VARIABLE text RESULT_VARIABLE status)
  if(NOT status EQUAL 0)
    message(FATAL_ERROR "trackloom-cli ${words} --help failed: ${status}")
  endif()
  # The usage line names the program as it was called: here, by the build path.
  string(REPLACE "${CLI}" "trackloom-cli" text "${text}")
  set(${result} "${text}" PARENT_SCOPE)
endfunction()

# The command words listed in a help text's subcommand section.
function(subcommands_of text result)
  string(REPLACE ";" "," text "${text}")
  string(REPLACE "\n" ";" lines "${text}")
  set(inside FALSE)
  set(words)
  foreach(line IN LISTS lines)
    string(TOLOWER "${line}" lower)
    if(lower MATCHES "^subcommands:")
      set(inside TRUE)
    elseif(inside AND line MATCHES "^  +([a-z][a-z0-9-]*)")
      list(APPEND words ${CMAKE_MATCH_1})
    elseif(inside AND NOT line MATCHES "^ ")
      set(inside FALSE)
    endif()
  endforeach()
  set(${result} ${words} PARENT_SCOPE)
endfunction()

# Help text as a no-fill block: roff escapes, and no line may start a request.
function(roff_block text result)
  string(REPLACE "\\" "\\e" text "${text}")
  string(REPLACE "-" "\\-" text "${text}")
  string(REGEX REPLACE "(^|\n)([.'])" "\\1\\\\&\\2" text "${text}")
  string(STRIP "${text}" text)
  set(${result} ".nf\n${text}\n.fi\n" PARENT_SCOPE)
endfunction()

set(page "")
function(describe words)
  help_of("${words}" text)
  string(REPLACE ";" " " title "trackloom-cli ${words}")
  roff_block("${text}" block)
  string(APPEND page ".SS \"${title}\"\n${block}")
  subcommands_of("${text}" children)
  foreach(child IN LISTS children)
    describe("${words};${child}")
  endforeach()
  set(page "${page}" PARENT_SCOPE)
endfunction()

help_of("" overview)
string(REGEX MATCH "^[^\n]*" summary "${overview}")
string(REGEX REPLACE "^Trackloom – " "" summary "${summary}")
roff_block("${overview}" overview_block)
subcommands_of("${overview}" groups)
foreach(group IN LISTS groups)
  describe("${group}")
endforeach()

file(WRITE ${OUTPUT} ".\\\" Generated from the help texts of trackloom-cli; do not edit.
.TH TRACKLOOM-CLI 1 \"\" \"Trackloom ${VERSION}\" \"Trackloom\"
.SH NAME
trackloom-cli \\- ${summary}
.SH ÜBERSICHT
.B trackloom-cli
.I BEFEHL
.RI [ OPTIONEN ]
.SH BESCHREIBUNG
trackloom-cli bietet die Operationen von Trackloom für Skripte an. Ergebnisse
stehen als JSON auf der Standardausgabe. Eine Ablehnung schreibt nichts auf die
Standardausgabe, die deutsche Meldung auf die Fehlerausgabe und endet mit Status 2;
ein Bedienfehler endet mit Status 1.
.PP
${overview_block}.SH BEFEHLE
${page}.SH RÜCKGABEWERT
.TP
.B 0
Erfolg.
.TP
.B 1
Bedienfehler (unbekannte Option, fehlendes Argument).
.TP
.B 2
Ablehnung; die Meldung steht auf der Fehlerausgabe.
.SH SIEHE AUCH
.BR trackloom (1)
")
