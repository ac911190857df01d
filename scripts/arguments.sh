# Sourced by a script with the options that it knows in $options: prints what stands at the head of
# the script for --help, and refuses what it does not know before anything is done.
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
