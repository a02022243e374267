// a comment
//
x = 1; // after a statement
/// three
a / b // c / d
/* on one line */ y
/**/ z
/***/ /** two stars **/ a
/* a star * and a slash / within */ b
/*/ not closed by its own slash */ c
a /* b */ / /* c */ d
'// a comment here too'
// the last line
