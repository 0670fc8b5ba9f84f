// Since its release 13 the library keeps the rare half of replacing within a text in an object of
// its compiled part that can also throw, and brings the unwinder and thread support with it. Made
// here from the header, that half needs nothing of them.
#include <string>

#if defined(_GLIBCXX_RELEASE) && _GLIBCXX_RELEASE >= 13
template void std::basic_string<char>::_M_replace_cold(char*, size_type, const char*, size_type,
                                                       size_type);
#endif
