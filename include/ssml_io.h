/* ssml_io.h - an utterance's markup tree: SSML text or a Mini-XML tree in,
 * an SSML file or a Mini-XML tree out, and editing the tree in place.
 *
 * The tree is the relation "ssml" of the utterance. Its first item is the
 * root, the "speak" element. Two kinds of item:
 *   - element: feature "tag" holds the element name (wide string), plus one
 *     feature per attribute, keyed by the attribute name as written
 *     ("xml:lang") and holding its text as a wide string; the daughters are
 *     the element's content in document order. Features are listed newest
 *     first, and the loader adds them so that the list reads attribute 1,
 *     attribute 2, ..., then "tag"; features added later come first.
 *   - text: feature "text" holds one whole run of character data (white
 *     space kept, character and entity references decoded); no daughters.
 * An item is an element exactly when it has a "tag" feature.
 *
 * Mini-XML trees exchanged here are released with mxmlRelease, which this
 * library exports for that purpose. Other Mini-XML functions are not
 * exported: a caller that builds or reads trees links Mini-XML itself, and
 * must use the same Mini-XML version as this library (3.x), since nodes
 * pass between the two copies. Strings that Mini-XML frees come from
 * malloc on both sides. */
#ifndef UTILS_SSML_IO_H
#define UTILS_SSML_IO_H

#include "utils_types.h"
#include "utterance.h"

UTILS_BEGIN_DECLS

/* Parses `ssml`, a zero-terminated UTF-8 document in memory (a UTF-8 byte
 * order mark is skipped), and replaces the utterance's "ssml" relation with
 * its markup tree, rooted at the first "speak" element found depth first.
 * Returns 1 on success. Returns 0 and leaves the utterance unchanged when
 * Mini-XML rejects the text, when it holds other than exactly one root
 * element or no "speak" element, or when an argument is null. Parse errors are not printed or
 * reported beyond the result. */
UTILS_API int utt_load_ssml(utterance *u, const char *ssml);

/* Builds the "ssml" relation from a Mini-XML tree, as utt_load_ssml does
 * after parsing: the first element named "speak" in `tree` (the node itself
 * or a descendant) becomes the root. Text nodes are expected to be opaque
 * (mxmlLoadString with MXML_OPAQUE_CALLBACK). Comments, processing
 * instructions and declarations are left out; a CDATA section becomes a text
 * item. The tree is only read; the caller keeps it. Does nothing when an
 * argument is null or no "speak" element exists. */
UTILS_API void utt_load_xml(utterance *u, mxml_node_t *tree);

/* Writes the "ssml" relation to the file at `path` as UTF-8: the line
 * <?xml version="1.0" encoding="UTF-8"?>, then every top-level item with its
 * subtree. Each opening tag is preceded by a line feed; nothing else is
 * added (no indentation, no final line feed) and nothing is escaped, so text
 * holding "<" or "&" is written as it is. Every feature but "tag" is written
 * as an attribute, in list order, its value printed as val_print prints it.
 * An element without daughters is written self-closing ("<break time=\"1s\"/>").
 * Returns the result of fclose (0 on success); -1 when `u` or `path` is
 * null or the file cannot be opened. An utterance without an "ssml"
 * relation gives a file holding only the declaration line. */
UTILS_API int utt_save_ssml(utterance *u, const char *path);

/* A new Mini-XML document (declared version 1.0) holding the first item of
 * the "ssml" relation and its subtree; top-level siblings of that item are
 * not converted. Attributes are the features other than "tag", in list
 * order, as UTF-8; a feature whose value is not a wide string gives an empty
 * attribute. Text items become opaque nodes. Release the result with
 * mxmlRelease. Returns a document with no element when the relation is
 * missing or empty, and null when `u` is null or memory runs out. */
UTILS_API mxml_node_t *utt_to_xml(utterance *u);

/* Mini-XML's own release function, exported by this library so that a
 * caller that does not link Mini-XML can free what utt_to_xml returns. The
 * declaration repeats the one of mxml.h. */
int mxmlRelease(mxml_node_t *node);

/* An AddTag callback: handed an item of the tree, the current wrapper (null
 * when none) and the caller's data; see AddTag for what its result means. */
typedef item *(*AddTag_callback)(item *i, item *wrapper, void *user_data);

/* Walks the tree below `root` in document order and offers every stretch of
 * content that may hold a new `tag` element to the callbacks, which do the
 * wrapping (typically: create the element, link it before the first wrapped
 * item, move items into it with move_tree). `child_list` names the elements
 * that may go inside the new element, `parent_list` those inside which it
 * may stand (lists as in ssml_tags.h).
 *   - A text item whose parent's tag is in `parent_list` goes to `on_text`.
 *     If the result is not the item itself, the text item is deleted. The
 *     result becomes the wrapper passed to the next call, or null when the
 *     item was its parent's last daughter. A text item whose parent is not
 *     in `parent_list` ends the run and its parent's remaining content is
 *     skipped.
 *   - An element tagged `tag` ends the run; its subtree is skipped.
 *   - An element in `child_list` whose subtree holds no `tag` element goes
 *     to `on_element`. A null result declines: the run ends and the walk
 *     enters the element when it is in `parent_list`, else skips it. Any
 *     other result becomes the wrapper (null when it is the item itself) and
 *     the walk goes on after the element's subtree.
 *   - Any other element ends the run, and is entered when it is in
 *     `parent_list`, else skipped.
 * A callback may add items before the item it is handed, move that item or
 * delete it, but must leave the items after it and its ancestors in place:
 * the walk resumes at the item that followed it (or its subtree) before the
 * call, and keeps track of the ancestors it has entered.
 * Always returns 1; does nothing when `root` is null or has no daughters, or
 * when either callback is null. */
UTILS_API int AddTag(item *root, const bsr_wchar *tag, const bsr_wchar *child_list,
                     const bsr_wchar *parent_list, AddTag_callback on_text,
                     AddTag_callback on_element, void *user_data);

/* Unlinks `i` (with its daughters) from where it stands and links it as the
 * last daughter of `new_parent`, fixing the relation's head and tail.
 * Both must be items of the same relation, and `new_parent` must not lie in
 * `i`'s subtree; nothing happens when either is null, when they are the same
 * item or when their relations differ. */
UTILS_API void move_tree(item *new_parent, item *i);

UTILS_END_DECLS

#endif /* UTILS_SSML_IO_H */
