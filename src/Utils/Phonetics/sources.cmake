# sources.cmake - the IPA inventory, context features and labels.
# (no sources yet)
