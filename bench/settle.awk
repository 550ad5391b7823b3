# The job of settle_file. Variables: w, p, s (posts of the finishing horses), n (bettors).
BEGIN { FS = "," }
{ amount = $4 + 0 } # the field ends in a carriage return
$1 >= 1 && $1 <= n && amount >= 0.01 && amount <= 1000 && $2 >= 1 && $2 <= 21 {
    pool[int($3)] += amount
    if ($3 == 1 && $2 == w) { ww += amount; stake[$1, 1] += amount; seen[$1] }
    if ($3 == 2 && $2 == w) { wp += amount; stake[$1, 2] += amount; seen[$1] }
    if ($3 == 3 && $2 == w) { ws += amount; stake[$1, 3] += amount; seen[$1] }
    if ($3 == 2 && $2 == p) { pp += amount; stake[$1, 4] += amount; seen[$1] }
    if ($3 == 3 && $2 == p) { ps += amount; stake[$1, 5] += amount; seen[$1] }
    if ($3 == 3 && $2 == s) { ss += amount; stake[$1, 6] += amount; seen[$1] }
}
END {
    pay[1] = pool[1] / ww
    profit = pool[2] - wp - pp
    pay[2] = (wp + profit / 2) / wp
    pay[4] = (pp + profit / 2) / pp
    profit = pool[3] - ws - ps - ss
    pay[3] = (ws + profit / 3) / ws
    pay[5] = (ps + profit / 3) / ps
    pay[6] = (ss + profit / 3) / ss
    printf "pools %.2f %.2f %.2f\npayoffs", pool[1], pool[2], pool[3]
    for (i = 1; i <= 6; i++)
        printf " %.3f", pay[i]
    for (b in seen) {
        winners++
        for (i = 1; i <= 6; i++)
            owed += pay[i] * stake[b, i]
    }
    printf "\nwinners %d owed %.0f\n", winners, owed
}
