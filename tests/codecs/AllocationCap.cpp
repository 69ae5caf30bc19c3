// Under AddressSanitizer, one allocation bigger than the pixel budget (1 GiB) can only come from
// a length read from a file and trusted: stop there with a report instead of allocating.
#if defined(__SANITIZE_ADDRESS__)
extern "C" const char* __asan_default_options() { return "max_allocation_size_mb=1100"; }
#endif
