"""Tells the variables whose first value nobody reads: the first thing done with them is a call that fills them in,
and a call that fails leaves nothing to be done with them."""

from clang.cindex import CursorKind

JUMPS = {CursorKind.RETURN_STMT, CursorKind.BREAK_STMT, CursorKind.CONTINUE_STMT}
# Fill in all that they are given, whatever happens.
COPIES = {"memcpy"}
# Go no further when the call that they are given has failed.
RAISES = {"RaiseIfFailed"}
# What they hold is not always asked, or not alone.
CHOICES = {"&&", "||", "?"}


def is_filled_in(variable, behind):
    """`behind`: the statements behind its declaration, in the same block."""
    for place, statement in enumerate(behind):
        uses = list(mentions(statement, variable))
        if not uses:
            continue
        call = filling_call(uses[0])
        if call is None:
            return False
        others = [other for later in behind[place + 1 :] for other in mentions(later, variable)]
        is_discarded = len(uses) + len(others) == 1
        return is_discarded or is_copied(statement, call) or ends_where_it_fails(statement, call)
    return False


def mentions(cursor, variable, above=()):
    """Each use below a cursor, as the way to it: the cursor itself first, the use last."""
    way = (*above, cursor)
    if cursor.kind == CursorKind.DECL_REF_EXPR and cursor.referenced == variable:
        yield way
    for child in cursor.get_children():
        yield from mentions(child, variable, way)


def filling_call(way):
    """The call that is given a variable itself, not its value; None: it is used in another way."""
    above = list(way[:-1])
    if above and above[-1].kind == CursorKind.UNARY_OPERATOR and next(above[-1].get_tokens()).spelling == "&":
        above.pop()
        if above and above[-1].kind == CursorKind.UNEXPOSED_EXPR:
            above.pop()
    call = above[-1] if above else None
    is_call = call is not None and call.kind == CursorKind.CALL_EXPR and not call.spelling.startswith("operator")
    return call if is_call else None


def is_copied(statement, call):
    return statement == call and call.spelling in COPIES


def ends_where_it_fails(statement, call):
    children = list(statement.get_children())
    if statement.kind == CursorKind.IF_STMT:
        return asks_for_failure(children[0], call) and ends_in_a_jump(children[1])
    return statement.kind == CursorKind.CALL_EXPR and statement.spelling in RAISES


def asks_for_failure(condition, call):
    """`!call` or `call != 0`, and nothing else."""
    words = [token.spelling for token in condition.get_tokens()]
    if CHOICES & set(words) or not any(node == call for node in condition.walk_preorder()):
        return False
    return words[0] == "!" or words[-2:] == ["!=", "0"]


def ends_in_a_jump(statement):
    if statement.kind == CursorKind.COMPOUND_STMT:
        children = list(statement.get_children())
        return bool(children) and ends_in_a_jump(children[-1])
    return statement.kind in JUMPS
