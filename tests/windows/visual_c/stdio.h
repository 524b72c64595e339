/* Our headers name the type. */
typedef struct _iobuf FILE;
