/* As much of Windows' header as ours take from it, for a compiler that takes Visual C++'s part. */
#include <stdint.h>
#if defined(_WIN64)
typedef unsigned __int64 WPARAM;
typedef __int64 LPARAM, LRESULT;
#else
typedef unsigned int WPARAM;
typedef long LPARAM, LRESULT;
#endif
typedef unsigned int UINT;
typedef struct HWND__ *HWND;
typedef struct HINSTANCE__ *HINSTANCE;
typedef struct HICON__ *HICON;
typedef HICON HCURSOR;
