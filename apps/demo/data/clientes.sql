-- 400 customers, the same at every load; every fourth one is a company. People, companies and
-- addresses are invented. Documents have right check digits, telephones and postcodes are of the
-- customer's city.

-- A number from 0 below `bound`; it depends only on the customer and the subject.
create function pg_temp.draw(codigo integer, subject text, bound integer) returns integer
language sql immutable as $$
  select ('x' || substr(md5(subject || codigo), 1, 7))::bit(28)::integer % bound
$$;

create function pg_temp.pick(codigo integer, subject text, choices text[]) returns text
language sql immutable as $$
  select choices[1 + pg_temp.draw(codigo, subject, cardinality(choices))]
$$;

-- The check digit of a document: weights from 2 up to `top_weight`, from the right, repeated.
create function pg_temp.with_check_digit(base text, top_weight integer) returns text
language sql immutable as $$
  select base || case when total % 11 < 2 then 0 else 11 - total % 11 end
  from (select sum(substr(base, length(base) - i, 1)::integer * (2 + i % (top_weight - 1))) as total
        from generate_series(0, length(base) - 1) as i) as weighted
$$;

create function pg_temp.cpf(codigo integer) returns text
language sql immutable as $$
  select pg_temp.with_check_digit(pg_temp.with_check_digit(
    lpad((100000000 + pg_temp.draw(codigo, 'cpf', 268435456) * 3)::text, 9, '0'), 11), 11)
$$;

create function pg_temp.cnpj(codigo integer) returns text
language sql immutable as $$
  select pg_temp.with_check_digit(pg_temp.with_check_digit(
    lpad((1000000 + pg_temp.draw(codigo, 'cnpj', 48000000))::text, 8, '0') || '0001', 9), 9)
$$;

create function pg_temp.person_name(codigo integer) returns text
language sql immutable as $$
  select pg_temp.pick(codigo, 'prenome', array[
      'Adriana', 'Alessandra', 'Aline', 'Amélia', 'Ana Lúcia', 'Ana Paula', 'Ângela', 'Antônia',
      'Aparecida', 'Áurea', 'Beatriz', 'Bruna', 'Camila', 'Cássia', 'Cecília', 'Célia', 'Clara',
      'Cláudia', 'Conceição', 'Cristiane', 'Débora', 'Eliane', 'Elisângela', 'Fabiana',
      'Fernanda', 'Flávia', 'Francisca', 'Gabriela', 'Glória', 'Helena', 'Inês', 'Irene',
      'Isabel', 'Joana', 'Josefa', 'Júlia', 'Juliana', 'Larissa', 'Letícia', 'Lúcia', 'Luzia',
      'Márcia', 'Maria das Graças', 'Maria de Fátima', 'Maria José', 'Marília', 'Marlene',
      'Mônica', 'Natália', 'Patrícia', 'Raquel', 'Regina', 'Renata', 'Rita', 'Rosângela',
      'Sebastiana', 'Sílvia', 'Simone', 'Sônia', 'Tânia', 'Tatiane', 'Terezinha', 'Valéria',
      'Vânia', 'Vera Lúcia', 'Verônica', 'Vitória', 'Adão', 'Adílson', 'Afonso', 'Alexandre',
      'Álvaro', 'Anderson', 'André', 'Antônio', 'Benedito', 'Bruno', 'Caio', 'Carlos',
      'Cássio', 'Célio', 'César', 'Cláudio', 'Daniel', 'Davi', 'Diego', 'Édson', 'Eduardo',
      'Estêvão', 'Fábio', 'Felipe', 'Flávio', 'Francisco', 'Geraldo', 'Gérson', 'Gonçalo',
      'Gustavo', 'Hélio', 'Inácio', 'Ítalo', 'Jerônimo', 'João', 'João Batista', 'Joaquim',
      'Jorge', 'José', 'José Carlos', 'Júlio', 'Lázaro', 'Leandro', 'Luís', 'Luís Henrique',
      'Márcio', 'Marcos', 'Mário', 'Maurício', 'Mauro', 'Moacir', 'Nílton', 'Otávio',
      'Paulo', 'Paulo César', 'Pedro', 'Rafael', 'Raimundo', 'Ricardo', 'Roberto', 'Rogério',
      'Romão', 'Rubens', 'Sebastião', 'Sérgio', 'Tiago', 'Valdir', 'Vicente', 'Vinícius'])
    || ' ' || pg_temp.pick(codigo, 'sobrenome do meio', array[
      'Alves', 'Amaral', 'Antunes', 'Araújo', 'Assunção', 'Barros', 'Batista', 'Borges',
      'Brandão', 'Camargo', 'Cardoso', 'Corrêa', 'Dias', 'Duarte', 'Fagundes', 'Falcão',
      'Farias', 'Figueiredo', 'Fonseca', 'Franco', 'Galvão', 'Guimarães', 'Lacerda', 'Leão',
      'Magalhães', 'Medeiros', 'Moura', 'Muniz', 'Nóbrega', 'Paixão', 'Peçanha', 'Pacheco',
      'Queirós', 'Rangel', 'Sá', 'Salomão', 'Serrão', 'Siqueira', 'Teles', 'Viana'])
    || ' ' || pg_temp.pick(codigo, 'sobrenome', array[
      'Almeida', 'Andrade', 'Barbosa', 'Brito', 'Caldeira', 'Campos', 'Carvalho', 'Castro',
      'Conceição', 'Costa', 'da Cruz', 'da Luz', 'da Rocha', 'da Silva', 'de Lima', 'de Melo',
      'de Oliveira', 'de Souza', 'do Nascimento', 'dos Anjos', 'dos Reis', 'dos Santos',
      'Farias', 'Fernandes', 'Ferreira', 'Freitas', 'Gomes', 'Gonçalves', 'Leite', 'Lopes',
      'Machado', 'Marques', 'Martins', 'Mendonça', 'Monteiro', 'Moraes', 'Moreira', 'Nunes',
      'Pereira', 'Pinto', 'Ramos', 'Ribeiro', 'Rodrigues', 'Sampaio', 'Simões', 'Teixeira',
      'Valadão', 'Vasconcelos', 'Vieira', 'Xavier'])
$$;

create function pg_temp.company_name(codigo integer) returns text
language sql immutable as $$
  select pg_temp.pick(codigo, 'ramo', array[
      'Armarinho', 'Armazém', 'Autopeças', 'Bazar', 'Casa de Carnes', 'Comercial',
      'Confecções', 'Depósito', 'Distribuidora', 'Doceria', 'Empório', 'Farmácia',
      'Ferragens', 'Floricultura', 'Gráfica', 'Laticínios', 'Livraria', 'Lanchonete',
      'Marcenaria', 'Mercearia', 'Móveis', 'Óptica', 'Padaria', 'Panificação', 'Papelaria',
      'Pousada', 'Quitanda', 'Restaurante', 'Sapataria', 'Supermercado', 'Tecidos',
      'Transportes'])
    || ' ' || pg_temp.pick(codigo, 'nome da empresa', array[
      'Água Clara', 'Alvorada', 'Araçá', 'Aroeira', 'Bela Vista', 'Boa Esperança',
      'Boa Viagem', 'Bom Sucesso', 'Cajueiro', 'Coração de Mãe', 'Esquina do Pão',
      'Estação Velha', 'Flor de Maio', 'Garça Branca', 'Ipê-Amarelo', 'Jequitibá',
      'Lua Nova', 'Maçaranduba', 'Manacá', 'Nova Aliança', 'Pé da Serra', 'Pedra Lascada',
      'Ponte Alta', 'Ponto Certo', 'Recanto do Sabiá', 'Rio Manso', 'Santo Antônio',
      'São Benedito', 'São Jorge', 'Sertão Verde', 'Sol Nascente', 'Três Lagoas',
      'Três Irmãos', 'União', 'Vale do Sol', 'Várzea Grande'])
    || ' ' || pg_temp.pick(codigo, 'tipo de empresa', array[
      'Ltda.', 'Ltda.', 'Ltda.', 'ME', 'Comércio Ltda.', '& Filhos Ltda.', 'EPP'])
$$;

create function pg_temp.email(codigo integer, nome text) returns text
language sql immutable as $$
  select trim('.' from regexp_replace(
           translate(lower(nome), 'áâãàéêíóôõúüç', 'aaaaeeiooouuc'), '[^a-z]+', '.', 'g'))
         || codigo || '@example.com'
$$;

insert into clientes (codigo, nome, cpf_cnpj, cep, endereco, cidade, uf, telefone, email,
                      nascimento, limite_credito, condicao, ativo, observacao)
select
  lpad(codigo::text, 5, '0'),
  nome,
  case when is_company then pg_temp.cnpj(codigo) else pg_temp.cpf(codigo) end,
  lpad((first_cep::integer + pg_temp.draw(codigo, 'cep', 980))::text, 8, '0'),
  pg_temp.pick(codigo, 'tipo de rua', array['Rua', 'Rua', 'Rua', 'Avenida', 'Travessa'])
    || ' ' || pg_temp.pick(codigo, 'rua', array[
      'das Acácias', 'Sete de Setembro', 'XV de Novembro', 'da Estação', 'do Comércio',
      'São José', 'Dom Pedro II', 'Tiradentes', 'das Palmeiras', 'do Açude', 'Santa Luzia',
      'Treze de Maio', 'da Matriz', 'dos Pescadores', 'Nossa Senhora das Graças', 'Bahia',
      'das Laranjeiras', 'Marechal Deodoro', 'do Mercado', 'Primeiro de Março'])
    || ', ' || 1 + pg_temp.draw(codigo, 'número', 2400),
  cidade,
  uf,
  ddd || case when pg_temp.draw(codigo, 'celular', 3) > 0
              then '9' || 80000000 + pg_temp.draw(codigo, 'telefone', 19999999)
              else (30000000 + pg_temp.draw(codigo, 'telefone', 9999999))::text end,
  case when pg_temp.draw(codigo, 'tem e-mail', 10) > 0
       then pg_temp.email(codigo, split_part(nome, ' ', 1)) end,
  case when not is_company then date '1944-03-01' + pg_temp.draw(codigo, 'nascimento', 22500) end,
  case when pg_temp.draw(codigo, 'tem limite', 15) > 0
       then pg_temp.draw(codigo, 'limite', case when is_company then 1800 else 240 end) * 50
            + pg_temp.pick(codigo, 'centavos', array['0', '0', '0', '49.90', '25.50'])::numeric
       else 0 end,
  lpad((1 + pg_temp.draw(codigo, 'condição', 8))::text, 2, '0'),
  pg_temp.draw(codigo, 'ativo', 20) > 0,
  pg_temp.pick(codigo, 'observação', array[
    null, null, null, null, null, null, null, null,
    'Entregar só pela manhã.', 'Prefere boleto por e-mail.', 'Pede nota com o nome fantasia.',
    'Não entregar às segundas-feiras.', 'Ligar antes da entrega.'])
from (
  select
    codigo,
    codigo % 4 = 0 as is_company,
    case when codigo % 4 = 0 then pg_temp.company_name(codigo)
         else pg_temp.person_name(codigo) end as nome,
    lpad((1 + pg_temp.draw(codigo, 'cidade', (select count(*)::integer from cidades)))::text,
         5, '0') as cidade
  from generate_series(1, 400) as codigo
) as drawn
join (select codigo as cidade, uf, ddd, cep as first_cep from cidades) as cidades using (cidade)
order by codigo;
