# Converts a list of changes as the installation does and compares the results; with CASE, converts
# a list that must be refused.

cmake_minimum_required(VERSION 3.25)
include(${TREE}/packaging/changelog.cmake)

set(undated "# Changes\n\n## 2.0\n\n- One.\n")
set(unversioned "# Changes\n\n- One.\n")
set(empty "# Changes\n")
if(CASE)
  file(WRITE ${WORK}/changes.md "${${CASE}}")
  brisel_read_changelog(${WORK}/changes.md brisel2pc "A <a@b>")
  return()
endif()

# expect(<what> <text> <expected>)
function(expect what text expected)
  if(NOT text STREQUAL expected)
    message(SEND_ERROR "${what}:\n${text}\ninstead of\n${expected}")
  endif()
endfunction()

foreach(day IN ITEMS "2026-11-21 Sat, 21 Nov" "2024-02-29 Thu, 29 Feb" "2024-03-01 Fri, 01 Mar"
    "2000-01-01 Sat, 01 Jan" "2100-03-01 Mon, 01 Mar" "2027-08-09 Mon, 09 Aug")
  string(SUBSTRING "${day}" 0 10 date)
  string(SUBSTRING "${day}" 0 4 year)
  string(SUBSTRING "${day}" 11 -1 expected)
  brisel_mail_date(${date} result)
  expect(${date} "${result}" "${expected} ${year} 12:00:00 +0000")
endforeach()

file(WRITE ${WORK}/changes.md [[
# Changes

What stands here is no entry.

## 2.1 (2027-08-09)

- Faster; by `./run`.
- Titles with [brackets] & <angles>
  on two lines.
- An entry that fills eighty characters to the very last one after its bullet.
- An entry that has one character more than that when it stands after its star.

## 2.0 (2026-11-21)

- First.
]])
brisel_read_changelog(${WORK}/changes.md brisel2pc "A Person <a@b.example>")
expect("newest version" "${BRISEL_NEWEST_VERSION}" 2.1)
expect("Debian's form" "${BRISEL_DEBIAN_CHANGELOG}" [[
brisel2pc (2.1) stable; urgency=medium

  * Faster; by ./run.
  * Titles with [brackets] & <angles> on two lines.
  * An entry that fills eighty characters to the very last one after its bullet.
  * An entry that has one character more than that when it stands after its
    star.

 -- A Person <a@b.example>  Mon, 09 Aug 2027 12:00:00 +0000

brisel2pc (2.0) stable; urgency=medium

  * First.

 -- A Person <a@b.example>  Sat, 21 Nov 2026 12:00:00 +0000
]])
expect("AppStream's form" "${BRISEL_APPSTREAM_RELEASES}" [[
    <release version="2.1" date="2027-08-09">
      <description>
        <ul>
          <li>Faster; by ./run.</li>
          <li>Titles with [brackets] &amp; &lt;angles> on two lines.</li>
          <li>An entry that fills eighty characters to the very last one after its bullet.</li>
          <li>An entry that has one character more than that when it stands after its star.</li>
        </ul>
      </description>
    </release>
    <release version="2.0" date="2026-11-21">
      <description>
        <ul>
          <li>First.</li>
        </ul>
      </description>
    </release>
]])
