# Sourced by a script whose options are in $options: for --help it prints the comment at the head of
# the script, and it refuses unknown options before anything is done.
for argument in "$@"; do
  case $argument in
    -h | --help)
      sed -n '2,/^[^#]/s/^# \?//p' "$0"
      exit 0
      ;;
    -*)
      if [[ " ${options:-} " != *" $argument "* ]]; then
        echo "${0##*/}: unknown option $argument; see --help" >&2
        exit 1
      fi
      ;;
  esac
done
