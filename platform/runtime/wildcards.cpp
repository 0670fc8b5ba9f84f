// Read by mingw-w64's start-up code, whose own value depends on how it was built. Zero: "*" and "?"
// in an argument are the argument's own and not the names of files that match.
extern "C" {
extern int _dowildcard;
int _dowildcard = 0;
}
