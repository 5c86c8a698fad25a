// The message header of errors that back ends find in a tree.
#ifndef IDL_MSG_HEADER_H
#define IDL_MSG_HEADER_H

class UTL_String;

// Writes "file:line:column: error: " on the error stream (without a line
// end), the form of the front end's own diagnostics, and counts one error,
// so that the compiler exits non-zero. A null file writes "<unknown>"; a
// column of 0 (not known) is left out.
void idl_msg_header(long line, long column, UTL_String* file);

// Errors counted so far in this process, by idl_msg_header and by the front
// end's own diagnostics.
long idl_error_count();
void idl_reset_error_count();
// Counts one error reported by other means (the front end's diagnostics).
void idl_count_error();

#endif
