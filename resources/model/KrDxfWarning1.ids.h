#define kDxfWarning1Dialog 4056
