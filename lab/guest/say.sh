# Shell helpers of every scene: what it says, waiting, and words of the form key=value.

# say TEXT...  a line of the scene's output, with the guest's seconds; in the console's log as well, where
# lines have the host's
say() { echo "[$(cut -d' ' -f1 /proc/uptime)] $*" | tee /dev/console; }

# stop TEXT...  the stage itself could not be set: ends the scene
stop() {
  echo "FAILED: $*"
  for log in /tmp/*.log; do
    [ -s "$log" ] && cp "$log" /out/
  done
  exit 1
}

# within SECONDS COMMAND...  repeats a command until it succeeds; fails when it never did. The guest's
# clock leaps over idle time, so that a long wait costs the host nothing.
within() {
  within_end=$(($(cut -d. -f1 /proc/uptime) + $1))
  shift
  until "$@" >/dev/null 2>&1; do
    [ "$(cut -d. -f1 /proc/uptime)" -lt "$within_end" ] || return 1
    sleep 0.5
  done
}

# given KEY DEFAULT WORD...  prints the value of KEY=VALUE among the words, "yes" for a bare KEY
given() {
  given_key=$1 given_value=$2
  shift 2
  for given_word; do
    case $given_word in
      "$given_key") given_value=yes ;;
      "$given_key="*) given_value=${given_word#*=} ;;
    esac
  done
  printf '%s\n' "$given_value"
}

# known KEYS WORD...  stops the scene at a word whose key is not one of KEYS: a typing error
known() {
  known_keys=" $1 "
  shift
  for known_word; do
    case $known_keys in
      *" ${known_word%%=*} "*) ;;
      *) stop "unknown word: $known_word (known:$known_keys)" ;;
    esac
  done
}
