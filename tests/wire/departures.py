"""Where the interface departs from its own rules. The sweeps take everything else from the text of the headers.

Each entry needs a comment that says what is odd.
"""

# Inline structs whose keys a fault text names by themselves, as members of "inline struct": pairs of UDT and path.
OVERLAID = set()

# Arrays of UDTs for which a single struct is refused: pairs of UDT and path.
LISTS = set()

# Members whose type the fault texts spell otherwise than the header: pair of UDT and path to the spelling.
SPELLED = {}
