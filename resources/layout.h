// What all templates share. Sizes are dialog units of "MS UI Gothic" 9 points: a full-width character takes 8 of them, a
// half-width one 4, a line of text 8. Room for a caption is judged by counting them.
#define KIRO_FONT FONT 9, "MS UI Gothic", 400, 0, 128
#define KIRO_DIALOG_STYLE STYLE DS_SETFONT | DS_MODALFRAME | WS_POPUP | WS_CAPTION | WS_SYSMENU

#define MARGIN 7
#define LABEL_H 8
#define RADIO_H 10
#define EDIT_H 13
#define BUTTON_H 14
#define ARROW_W 14   // a combo of which only the arrow shows
#define LIST_H 120   // a combo with its list open

#define NARROW_COMBO_STYLE CBS_DROPDOWNLIST | CBS_OWNERDRAWFIXED | CBS_HASSTRINGS | WS_VSCROLL | WS_TABSTOP
#define GRID_STYLE                                                                                              \
    LVS_REPORT | LVS_OWNERDATA | LVS_OWNERDRAWFIXED | LVS_SINGLESEL | LVS_SHOWSELALWAYS | LVS_NOSORTHEADER | WS_BORDER | \
        WS_CLIPCHILDREN | WS_TABSTOP
