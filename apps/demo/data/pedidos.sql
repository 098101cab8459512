-- 60 orders of 40 customers in the first half of 2026, the same at every load, generated like the customers.
insert into pedidos (numero, data, cliente, uf, cidade, condicao, entrega)
select
  lpad(numero::text, 6, '0'),
  data,
  codigo,
  uf,
  cidade,
  condicao,
  data + 3 + pg_temp.draw(numero, 'prazo', 25)
from (
  select
    numero,
    date '2026-01-05' + numero * 3 as data,
    lpad((1 + pg_temp.draw(numero, 'cliente do pedido', 40))::text, 5, '0') as codigo
  from generate_series(1, 60) as numero
) as drawn
join clientes using (codigo)
order by numero;

insert into itens_pedido (pedido, item, produto, quantidade, preco)
select
  pedido,
  item,
  codigo,
  1 + pg_temp.draw(numero * 3 + item, 'quantidade', 24),
  preco
from (
  select
    lpad(numero::text, 6, '0') as pedido,
    numero,
    item,
    lpad((1 + (pg_temp.draw(numero, 'produto', 60) + item * 17) % 60)::text, 5, '0') as codigo
  from generate_series(1, 60) as numero, generate_series(1, 3) as item
  where item <= 1 + pg_temp.draw(numero, 'itens', 3)
) as drawn
join produtos using (codigo)
order by pedido, item;
