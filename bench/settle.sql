-- The job of settle_file, on a table bets (bettor, post, type, amount) and a one-row table race
-- (w, p, s, n).
create temp table good as
    select bets.* from bets, race
    where bettor between 1 and n and post between 1 and 21 and amount between 0.01 and 1000;
create temp table stakes as
    select bettor,
        sum(iif(type = 1 and post = w, amount, 0)) as ww,
        sum(iif(type = 2 and post = w, amount, 0)) as wp,
        sum(iif(type = 3 and post = w, amount, 0)) as ws,
        sum(iif(type = 2 and post = p, amount, 0)) as pp,
        sum(iif(type = 3 and post = p, amount, 0)) as ps,
        sum(iif(type = 3 and post = s, amount, 0)) as ss
    from good, race group by bettor;
create temp table pools as
    select sum(iif(type = 1, amount, 0)) as win, sum(iif(type = 2, amount, 0)) as place,
        sum(iif(type = 3, amount, 0)) as show from good;
create temp table sums as
    select sum(ww) as ww, sum(wp) as wp, sum(ws) as ws, sum(pp) as pp, sum(ps) as ps, sum(ss) as ss
    from stakes;
create temp table pay as
    select win / ww as ww,
        (wp + (place - wp - pp) / 2) / wp as wp, (ws + (show - ws - ps - ss) / 3) / ws as ws,
        (pp + (place - wp - pp) / 2) / pp as pp, (ps + (show - ws - ps - ss) / 3) / ps as ps,
        (ss + (show - ws - ps - ss) / 3) / ss as ss
    from pools, sums;
select printf('pools %.2f %.2f %.2f', win, place, show) from pools;
select printf('payoffs %.3f %.3f %.3f %.3f %.3f %.3f', ww, wp, ws, pp, ps, ss) from pay;
select printf('winners %d owed %.0f', count(*), sum(owed)) from (
    select pay.ww * stakes.ww + pay.wp * stakes.wp + pay.ws * stakes.ws + pay.pp * stakes.pp
        + pay.ps * stakes.ps + pay.ss * stakes.ss as owed
    from stakes, pay where owed <> 0);
