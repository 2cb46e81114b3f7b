"""The arrows between the rooms of src: what each may include from."""

# What a room uses; in app, what each file does, since not all of them know Qt.
ARROWS = {
    "runtime": [],
    "forms": ["runtime"],
    "core": ["forms"],
    "stats": ["core"],
    "store": ["core"],
    "capture": ["store"],
    "sheet": ["stats"],
    "final": ["store"],
    "qt": ["core", "<Qt>"],
    "report": ["stats", "store"],
    "app/screens.cpp": ["app", "capture", "sheet", "final"],
    "app/program.cpp": ["app/screens.cpp", "qt"],
    "app/main.cpp": ["app/program.cpp"],
    "app/report_dialog.cpp": ["app", "qt", "report"],
    "app/report_program.cpp": ["app/report_dialog.cpp"],
    "app/informe.cpp": ["app/report_program.cpp"],
    "windows": ["app/program.cpp", "app/report_program.cpp"],
}


def reached_from(room):
    """Whose headers a room may include: its own and those at the end of its arrows."""
    rooms = set() if "/" in room else {room}
    for target in ARROWS.get(room, []):
        rooms |= reached_from(target)
    return rooms


def room_of(file):
    """The row of ARROWS that a file of src goes by; `file` counts from src."""
    source = file.removesuffix(".h").removesuffix(".cpp") + ".cpp"
    return source if source in ARROWS else file.split("/")[0]
