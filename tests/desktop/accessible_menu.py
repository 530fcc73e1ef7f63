"""Prints the titles of the program's open menu as an assistive tool finds them."""

import time

import pyatspi


def titles(accessible, found):
    if accessible is None:
        return found
    if accessible.getRole() in (pyatspi.ROLE_MENU_ITEM, pyatspi.ROLE_MENU):
        found.append(accessible.name)
    for index in range(accessible.childCount):
        titles(accessible.getChildAtIndex(index), found)
    return found


end = time.monotonic() + 5
while time.monotonic() < end:
    programs = [program for program in pyatspi.Registry.getDesktop(0) if program and program.name.lower() in ("zanthe vell", "zanthe-vell")]
    found = [title for program in programs for title in titles(program, [])]
    if found:
        print("\n".join(found))
        break
    time.sleep(0.1)
