# libphonenumber as it is, and what it stands on, as one static library: `phonenumber`. Only the files that are
# really linked are compiled; scripts/setup-phonenumber brings them.

set(PHONENUMBER_SOURCE_DIR "${PROJECT_SOURCE_DIR}/build/tools/phonenumber" CACHE PATH
    "Folder that scripts/setup-phonenumber has made")

function(phonenumber_sources variable folder extension)
    set(result "")
    foreach(name IN LISTS ARGN)
        list(APPEND result "${PHONENUMBER_SOURCE_DIR}/${folder}/${name}.${extension}")
    endforeach()
    set(${variable} ${${variable}} ${result} PARENT_SCOPE)
endfunction()

set(files "")
phonenumber_sources(files libphonenumber/cpp/src/phonenumbers cc
    asyoutypeformatter
    base/strings/string_piece
    default_logger
    lite_metadata
    logger
    phonenumber
    phonenumberutil
    regex_based_matcher
    regexp_cache
    short_metadata
    shortnumberinfo
    stringutil
    unicodestring
    utf/unicodetext
    utf/unilib)
phonenumber_sources(files libphonenumber/cpp/src/phonenumbers c
    utf/rune)
phonenumber_sources(files generated cc
    phonenumbers/phonemetadata.pb
    phonenumbers/phonenumber.pb
    re2/perl_groups
    re2/unicode_casefold
    re2/unicode_groups
    regexp_adapter_re2)
phonenumber_sources(files abseil/absl cc
    base/internal/raw_logging
    base/internal/throw_delegate
    container/internal/raw_hash_set
    hash/internal/city
    hash/internal/hash
    hash/internal/low_level_hash
    numeric/int128
    strings/ascii
    strings/charconv
    strings/internal/charconv_bigint
    strings/internal/charconv_parse
    strings/internal/memutil
    strings/match
    strings/numbers
    strings/str_cat
    strings/str_replace
    strings/str_split
    strings/string_view)
phonenumber_sources(files protobuf/src/google/protobuf cc
    arena
    arenastring
    extension_set
    generated_enum_util
    generated_message_util
    implicit_weak_message
    io/coded_stream
    io/io_win32
    io/zero_copy_stream
    io/zero_copy_stream_impl
    io/zero_copy_stream_impl_lite
    message_lite
    parse_context
    repeated_field
    repeated_ptr_field
    stubs/common
    stubs/int128
    stubs/status
    stubs/stringpiece
    stubs/structurally_valid
    stubs/strutil
    wire_format_lite)
phonenumber_sources(files re2/re2 cc
    bitstate
    compile
    dfa
    mimics_pcre
    nfa
    onepass
    parse
    prog
    re2
    regexp
    simplify
    stringpiece
    tostring)
phonenumber_sources(files re2/util cc
    rune
    strutil)

add_library(phonenumber STATIC EXCLUDE_FROM_ALL ${files})
target_compile_features(phonenumber PRIVATE cxx_std_17)
target_compile_options(phonenumber PRIVATE -w -Os -fstack-protector-strong -ffunction-sections -fdata-sections)
target_compile_definitions(phonenumber
    PUBLIC I18N_PHONENUMBERS_USE_RE2 I18N_PHONENUMBERS_USE_STDMUTEX
    PRIVATE _WIN32_WINNT=0x0601)
target_link_libraries(phonenumber PUBLIC stack_guard)
target_include_directories(phonenumber SYSTEM PUBLIC
    "${PHONENUMBER_SOURCE_DIR}/generated"
    "${PHONENUMBER_SOURCE_DIR}/generated/phonenumbers"
    "${PHONENUMBER_SOURCE_DIR}/libphonenumber/cpp/src"
    "${PHONENUMBER_SOURCE_DIR}/abseil"
    "${PHONENUMBER_SOURCE_DIR}/protobuf/src"
    "${PHONENUMBER_SOURCE_DIR}/re2")
