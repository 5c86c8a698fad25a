// The message header of errors that back ends find in a tree.
#ifndef IDL_MSG_HEADER_H
#define IDL_MSG_HEADER_H

class UTL_String;

// Writes "file:line: " on the error stream (without a line end) and counts
// one error, so that the compiler exits non-zero. A null file writes
// "<unknown>".
void idl_msg_header(long line, UTL_String* file);

// Errors counted so far in this process, by idl_msg_header and by the front
// end's own diagnostics.
long idl_error_count();
void idl_reset_error_count();
// Counts one error reported by other means (the front end's diagnostics).
void idl_count_error();

#endif
