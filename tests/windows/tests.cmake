# Windows tests (filled in below).
