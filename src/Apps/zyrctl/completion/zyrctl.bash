# bash completion of zyrctl; load it with: source <(zyrctl completion bash)
# For bash "=" usually begins a new word, so that only what stands behind it is to be put in.
_zyrctl() {
    local line=${COMP_LINE:0:COMP_POINT} candidate
    local typed=${line##*[[:blank:]]}
    COMPREPLY=()
    while IFS= read -r candidate; do
        if [[ $typed == *=* && $COMP_WORDBREAKS == *=* ]]; then
            candidate=${candidate#*=}
        fi
        printf -v candidate %q "$candidate"
        [[ $candidate == *= ]] || candidate+=' '
        COMPREPLY+=("$candidate")
    done < <("${COMP_WORDS[0]}" __complete "$line" 2>/dev/null)
}
complete -o nospace -F _zyrctl zyrctl
