# The headers that are installed: those for programs, listed here, and what they include.

# Entry headers below src/.
set(QUILLKIT_ENTRY_HEADERS
    # the exported functions
    toolkit/quillkit.h capi/quillkit_c.h
    # the class library: start and stop, the session, and the way to the appliance's books
    toolkit/toolkit_app.h bridge/the_agent.h appliance/scanner.h books/connected_user.h
    import/import_address_book.h import/convert_file.h settings/ldap_settings_store.h
    platform/message_box.h
    # its books with their views, lists and records
    softkeys/top_level_ab.h books/email_ab.h books/email_ab_handle.h books/fax_ab.h
    books/printer_ab.h books/user_ab.h books/priv_email_ab.h views/sliding_entry_view.h
    views/letter_entry_view.h views/full_entry_view.h
    # the server library's entry points, which the simulator defines
    bridge/imsp_api.h)
if(NOT WIN32)
  list(APPEND QUILLKIT_ENTRY_HEADERS platform/posix/event_loop.h)
endif()

# quillkit_with_included(result headers...): the headers below src/ and what they include there. The
# build is configured again when one of them changes.
function(quillkit_with_included result)
  set(found)
  while(ARGN)
    list(POP_FRONT ARGN header)
    if(header IN_LIST found)
      continue()
    endif()
    list(APPEND found ${header})
    set(path ${PROJECT_SOURCE_DIR}/src/${header})
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${path})
    file(STRINGS ${path} lines REGEX "^#include \"[a-z_/]+\\.h\"")
    list(TRANSFORM lines REPLACE "^#include \"(.*)\".*" "\\1")
    list(APPEND ARGN ${lines})
  endwhile()
  set(${result} ${found} PARENT_SCOPE)
endfunction()
