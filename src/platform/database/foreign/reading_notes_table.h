#pragma once

/// By these the reader of Jet databases tells, inside the copy that it makes, what it has found besides the tables.
/// They are there in every copy. Others read the view: tables of the program's own are closed to them, and no list of
/// tables shows a view.
///
/// | kind       | name                | field                | number                                           |
/// | ---------- | ------------------- | -------------------- | ------------------------------------------------ |
/// | codePage   |                     |                      | of the texts of Jet 3, where it had to be found  |
/// | sample     | a text as Chinese   | the same as western  | only where the code page is in doubt             |
/// | catalogue  |                     |                      | the list of tables is damaged                    |
/// | table      | of a table          |                      | its records that cannot be read, -1 for an       |
/// |            |                     |                      | unknown number; only where it has such           |
/// | unreadable | of a table          |                      | which is not in the copy at all                  |
/// | value      | of a table          | of a column          | row identity of the record whose value is lost:  |
/// |            |                     |                      | Null, or a key without a value if it was long    |
inline constexpr const char* readingNotesTable = "lunq_notes";
inline constexpr const char* readingNotesView = "MSysReadingNotes";
