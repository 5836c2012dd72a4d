// A driver with one function, which tells the builds of this file apart. Without DRIVER_ID it has none at all.
#ifdef DRIVER_ID
int host_test_driver_id(void);
int host_test_driver_id(void) { return DRIVER_ID; }
#else
extern const int host_test_nothing;
const int host_test_nothing = 0;
#endif
