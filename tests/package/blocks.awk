# blocks.awk: makes a program of the code blocks of a page. The comment before a block says what it is:
#
#   <!-- file: NAME -->   a file       with -v to=sh: a command that writes it
#   <!-- run -->          a command    with -v to=sh: itself
#   <!-- body -->         statements   with -v to=cpp: a function
#   <!-- members -->      members      with -v to=cpp: a class derived from GuideClient
#
# A block of C++ without a comment makes the program fail.

/^<!-- / {
  mark = $2
  name = $3
  next
}

/^```/ && inside {
  print inside == "skip" ? "" : last
  inside = mark = ""
  next
}

/^```/ {
  inside = "skip"
  if (to == "sh" && mark == "file:") {
    inside = "file"
    print "cat >'" name "' <<'END OF FILE'"
    last = "END OF FILE"
  } else if (to == "sh" && mark == "run") {
    inside = "run"
    last = ""
  } else if (to == "cpp" && (mark == "body" || mark == "members")) {
    inside = mark
    print mark == "body" ? "void Block" ++count "() {" : "class Block" ++count " : public GuideClient {\n public:"
    print "#line " NR + 1 " \"" FILENAME "\""
    last = mark == "body" ? "}" : "};"
  } else if (to == "cpp" && $1 == "```cpp") {
    print "#error line " NR " of " FILENAME " begins a block without a mark"
  }
  next
}

inside && inside != "skip"

/[^[:space:]]/ { mark = "" }
